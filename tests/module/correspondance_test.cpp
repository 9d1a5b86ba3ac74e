// The mapping between drawing, distance and altitude, on records filled by hand.
// The expected numbers are worked out from the planes and the ground below.
#include <gtest/gtest.h>

#include "module/profil/profilLong.h"

using plv::altitudeVraie, plv::distanceProfil, plv::profilLong, plv::stationPk, plv::xDessin, plv::yDessin;

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
  for (const auto& c : cas)
    EXPECT_DOUBLE_EQ(p.ordonneeDessin(distanceProfil(c.d), altitudeVraie(120)).valeur, (120 - c.plan) * 10 + 500)
        << c.d;
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
    altitudeVraie relatif, absolu;
    EXPECT_EQ(p.altitudeDePoint({1000 + c.d, 700, 0}, relatif, true), c.bon) << c.d;
    EXPECT_EQ(p.altitudeDePoint({c.d, 200, 0}, absolu, false), c.bon) << c.d;
    EXPECT_DOUBLE_EQ(relatif.valeur, c.altitude) << c.d;
    EXPECT_DOUBLE_EQ(absolu.valeur, c.altitude) << c.d;
  }
}

TEST(Mapping, StationsScanTheSectionsFromTheirStarts) {
  profilLong p = exemple();
  p.dcumDeb = 1000;
  xDessin x;
  yDessin y;
  ASSERT_TRUE(p.versDessin(stationPk(1120), altitudeVraie(97), x, y));
  EXPECT_DOUBLE_EQ(x.valeur, 1120);
  EXPECT_DOUBLE_EQ(y.valeur, 520);  // the first plane serves, although 120 m lie in the second section
  EXPECT_FALSE(p.versDessin(stationPk(999.9), altitudeVraie(97), x, y));
  EXPECT_FALSE(p.versDessin(stationPk(1200.1), altitudeVraie(97), x, y));
  EXPECT_TRUE(p.versDessin(stationPk(1200), altitudeVraie(97), x, y));
  EXPECT_EQ(p.pcEnStation(stationPk(1120)).valeur, 95);
  EXPECT_EQ(p.pcEnStation(stationPk(1000)).valeur,
            90);  // at or before the origin the scan runs through to the last one
  EXPECT_EQ(p.pcEnX(xDessin(1120)).valeur, 95);
}

TEST(Mapping, WithoutUnknownKeysOnlyTheOriginIsOnTheProfile) {
  profilLong p = exemple();
  p.clesInconnues = false;
  xDessin x;
  yDessin y;
  EXPECT_TRUE(p.versDessin(stationPk(0), altitudeVraie(97), x, y));
  EXPECT_FALSE(p.versDessin(stationPk(1), altitudeVraie(97), x, y));
}

TEST(Mapping, SectionsByTheirBounds) {
  const profilLong p = exemple();
  const struct {
    double d;
    std::size_t section;
  } cas[] = {{-3, 0}, {0, 0}, {100, 0}, {100.5, 1}, {149, 1}, {150, 2}, {400, 2}};
  for (const auto& c : cas) EXPECT_EQ(p.indexPc(xDessin(1000 + c.d)), c.section) << c.d;
  stationPk s;
  altitudeVraie z;
  p.versProfil(1, {1120, 510, 0}, s, z);
  EXPECT_DOUBLE_EQ(s.valeur, 120);
  EXPECT_DOUBLE_EQ(z.valeur, 101);
  EXPECT_DOUBLE_EQ(p.altitudeDeY(yDessin(520), altitudeVraie(95)).valeur, 97);
}

TEST(Mapping, GroundIsExtrapolatedAndAStepGivesTheMean) {
  profilLong p = exemple();
  const struct {
    double d, altitude;
  } cas[] = {{-10, 98}, {0, 100}, {25, 105}, {50, 110}, {125, 106.5}, {200, 99}, {210, 98}};
  for (const auto& c : cas) EXPECT_NEAR(p.altitudeTn(xDessin(1000 + c.d)).valeur, c.altitude, 1e-9) << c.d;
  p.distTn = {50, 50};
  p.altTn = {110, 114};
  EXPECT_DOUBLE_EQ(p.altitudeTn(xDessin(1050)).valeur, 112);
  p.distTn = {50};
  p.altTn = {110};
  EXPECT_DOUBLE_EQ(p.altitudeTn(xDessin(0)).valeur, 110);
  p.distTn.clear();
  EXPECT_DOUBLE_EQ(p.altitudeTn(xDessin(0)).valeur, 0);
}

TEST(Mapping, AProfileWithoutPcAnswers) {
  profilLong p;
  xDessin x;
  yDessin y;
  altitudeVraie z;
  EXPECT_FALSE(p.versDessin(stationPk(0), altitudeVraie(0), x, y));
  EXPECT_FALSE(p.altitudeDePoint({0, 0, 0}, z, true));
  EXPECT_EQ(p.indexPc(xDessin(5)), 0u);
  EXPECT_EQ(p.pcEnX(xDessin(5)).valeur, 0.0);
  EXPECT_EQ(p.ordonneeDessin(distanceProfil(5), altitudeVraie(2)).valeur, 20.0);
}

}  // namespace
