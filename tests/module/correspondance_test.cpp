// The mapping between drawing, distance and altitude, on records filled by hand.
// The expected numbers are worked out from the planes and the ground below.
#include <gtest/gtest.h>

#include "module/profil/profilLong.h"

using plv::profilLong;

namespace {

// Three sections at 0, 100 and 150 m, planes at 95, 100 and 90 m, vertical scale 10, origin at (1000, 500).
profilLong exemple() {
  profilLong p;
  p.position = {1000.0, 500.0, 0.0};
  p.distPc = {0, 100, 150};
  p.altPc = {95, 100, 90};
  p.distTn = {0, 50, 50, 200};
  p.altTn = {100, 110, 114, 99};
  p.clesInconnues = true;
  return p;
}

TEST(Mapping, OrdinatesTakeTheLowerPlaneAtAChangeOfSection) {
  const profilLong p = exemple();
  const struct {
    double d, plan;
  } cas[] = {{-5, 95}, {0, 95}, {50, 95}, {100, 95}, {100 + 5e-6, 95}, {100.1, 100}, {149, 100}, {150, 90}, {999, 90}};
  for (const auto& c : cas) EXPECT_DOUBLE_EQ(p.ordonneeDessin(c.d, 120), (120 - c.plan) * 10 + 500) << c.d;
}

TEST(Mapping, APointOnAChangeOfSectionHasNoAltitude) {
  const profilLong p = exemple();
  const struct {
    double d;
    bool bon;
    double altitude;
  } cas[] = {{-1, true, 95 + 20},       {0, true, 95 + 20},   {99.999, true, 95 + 20}, {100, false, 0},
             {100.001, true, 100 + 20}, {150, true, 90 + 20}, {500, true, 90 + 20}};
  for (const auto& c : cas) {
    double relatif = 0, absolu = 0;
    EXPECT_EQ(p.altitudeDePoint({1000 + c.d, 700, 0}, relatif, true), c.bon) << c.d;
    EXPECT_EQ(p.altitudeDePoint({c.d, 200, 0}, absolu, false), c.bon) << c.d;
    EXPECT_DOUBLE_EQ(relatif, c.altitude) << c.d;
    EXPECT_DOUBLE_EQ(absolu, c.altitude) << c.d;
  }
}

TEST(Mapping, StationsScanTheSectionsFromTheirStarts) {
  profilLong p = exemple();
  p.dcumDeb = 1000;
  double x = 0, y = 0;
  ASSERT_TRUE(p.versDessin(1120, 97, x, y));
  EXPECT_DOUBLE_EQ(x, 1120);
  EXPECT_DOUBLE_EQ(y, 520);  // the first plane serves, although 120 m lie in the second section
  EXPECT_FALSE(p.versDessin(999.9, 97, x, y));
  EXPECT_FALSE(p.versDessin(1200.1, 97, x, y));
  EXPECT_TRUE(p.versDessin(1200, 97, x, y));
  EXPECT_EQ(p.pcEnStation(1120), 95);
  EXPECT_EQ(p.pcEnStation(1000), 90);  // at or before the origin the scan runs through to the last one
  EXPECT_EQ(p.pcEnX(1120), 95);
}

TEST(Mapping, WithoutUnknownKeysOnlyTheOriginIsOnTheProfile) {
  profilLong p = exemple();
  p.clesInconnues = false;
  double x = 0, y = 0;
  EXPECT_TRUE(p.versDessin(0, 97, x, y));
  EXPECT_FALSE(p.versDessin(1, 97, x, y));
}

TEST(Mapping, SectionsByTheirBounds) {
  const profilLong p = exemple();
  const struct {
    double d;
    std::size_t section;
  } cas[] = {{-3, 0}, {0, 0}, {100, 0}, {100.5, 1}, {149, 1}, {150, 2}, {400, 2}};
  for (const auto& c : cas) EXPECT_EQ(p.indexPc(1000 + c.d), c.section) << c.d;
  double s = 0, z = 0;
  p.versProfil(1, {1120, 510, 0}, s, z);
  EXPECT_DOUBLE_EQ(s, 120);
  EXPECT_DOUBLE_EQ(z, 101);
  EXPECT_DOUBLE_EQ(p.altitudeDeY(520, 95), 97);
}

TEST(Mapping, GroundIsExtrapolatedAndAStepGivesTheMean) {
  profilLong p = exemple();
  const struct {
    double d, altitude;
  } cas[] = {{-10, 98}, {0, 100}, {25, 105}, {50, 110}, {125, 106.5}, {200, 99}, {210, 98}};
  for (const auto& c : cas) EXPECT_NEAR(p.altitudeTn(1000 + c.d), c.altitude, 1e-9) << c.d;
  p.distTn = {50, 50};
  p.altTn = {110, 114};
  EXPECT_DOUBLE_EQ(p.altitudeTn(1050), 112);
  p.distTn = {50};
  p.altTn = {110};
  EXPECT_DOUBLE_EQ(p.altitudeTn(0), 110);
  p.distTn.clear();
  EXPECT_DOUBLE_EQ(p.altitudeTn(0), 0);
}

TEST(Mapping, AProfileWithoutPcAnswers) {
  profilLong p;
  double x = 0, y = 0;
  EXPECT_FALSE(p.versDessin(0, 0, x, y));
  EXPECT_FALSE(p.altitudeDePoint({0, 0, 0}, x, true));
  EXPECT_EQ(p.indexPc(5), 0u);
  EXPECT_EQ(p.pcEnX(5), 0.0);
  EXPECT_EQ(p.ordonneeDessin(5, 2), 20.0);
}

}  // namespace
