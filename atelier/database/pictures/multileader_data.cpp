// The codes of each part of a multileader; the same code means other things in another part.
#include "atelier/database/pictures/multileader_data.h"

#include "atelier/database/entities/multileader_groups.h"

namespace atelier {
namespace {

using enum MultileaderPlace;

class Reading {
 public:
  explicit Reading(const Record& record) : groups_(record.groups), end_(record.xdataStart()) {}

  MultileaderData run() {
    MultileaderPlace place = entity;
    for (i_ = 0; i_ < end_; ++i_) {
      const MultileaderPlace before = place;
      place = multileaderPlace(place, groups_[i_]);
      if (place != before) {
        if (place == leader && before == context) data_.bundles.emplace_back();
        if (place == line && !data_.bundles.empty()) data_.bundles.back().lines.emplace_back();
        continue;
      }
      switch (place) {
        case entity: ofEntity(); break;
        case context: ofContext(); break;
        case leader: ofLeader(data_.bundles.back()); break;
        case line: ofLine(data_.bundles.back().lines.back()); break;
      }
    }
    finish();
    return std::move(data_);
  }

 private:
  const Group& group() const { return groups_[i_]; }
  // The point that begins here; its other ordinates follow.
  AcGePoint3d point() const {
    double ordinates[3] = {};
    for (std::size_t k = 0; k < 3 && i_ + k < end_; ++k)
      if (groups_[i_ + k].code() == group().code() + 10 * static_cast<int>(k)) ordinates[k] = groups_[i_ + k].real();
    return {ordinates[0], ordinates[1], ordinates[2]};
  }

  void ofEntity() {
    switch (group().code()) {
      case 170: data_.lines = group().integer(); break;
      case 91: data_.lineColour = group().integer(); break;
      case 341: data_.linetype = group().handle(); break;
      case 171: data_.lineWeight = group().integer(); break;
      case 290: landingShown_ = group().integer() != 0; break;
      case 291: data_.hasLanding = group().integer() != 0; break;
      case 342: data_.arrow = group().handle(); break;
      case 42:
        if (data_.arrowSize == 0) data_.arrowSize = group().real();
        break;
      case 292: data_.framed = group().integer() != 0; break;
      case 330: definition_ = group().handle(); break;
      case 302:
        if (definition_ && data_.block) data_.block->attributes.emplace_back(definition_, group().text());
        break;
      default: break;
    }
  }

  void ofContext() {
    const int code = group().code();
    if (code == 290 && group().integer() != 0) data_.text.emplace();
    if (code == 296 && group().integer() != 0) data_.block.emplace();
    if (code == 140) data_.arrowSize = group().real();
    if (code == 145) data_.gap = group().real();
    if (code == 41) textHeight_ = group().real();
    if (data_.block) ofBlock(*data_.block, code);
    else if (data_.text) ofText(*data_.text, code);
  }

  void ofText(LeaderText& text, int code) {
    switch (code) {
      case 304: text.contents += group().text(); break;
      case 11: text.normal = point().asVector(); break;
      case 340: text.style = group().handle(); break;
      case 12: text.at = point(); break;
      case 13: text.direction = point().asVector(); break;
      case 43: text.width = group().real(); break;
      case 45: text.spacing = group().real(); break;
      case 170: text.spacingStyle = group().integer(); break;
      case 90: text.colour = group().integer(); break;
      case 171: text.attachment = group().integer(); break;
      case 91: text.fillColour = group().integer(); break;
      case 141: text.fillMargin = group().real(); break;
      case 291: text.filledWithSheet = group().integer() != 0; break;
      case 292: text.filled = group().integer() != 0; break;
      default: break;
    }
  }

  void ofBlock(LeaderBlock& block, int code) {
    switch (code) {
      case 341: block.block = group().handle(); break;
      case 14: block.normal = point().asVector(); break;
      case 15: block.at = point(); break;
      case 16: block.scale = point().asVector(); break;
      case 46: block.turn = group().real(); break;
      case 93: block.colour = group().integer(); break;
      default: break;
    }
  }

  void ofLeader(LeaderBundle& bundle) {
    switch (group().code()) {
      case 290: ended_ = group().integer() != 0; break;
      case 10:
        if (ended_) bundle.end = point();
        break;
      case 11: bundle.landing = point().asVector(); break;
      case 40: bundle.landing = bundle.landing.normal() * group().real(); break;
      default: break;
    }
  }

  void ofLine(LeaderLine& found) {
    if (group().code() == 10) found.points.push_back(point());
  }

  void finish() {
    if (data_.text) data_.text->height = textHeight_;
    if (!landingShown_) data_.hasLanding = false;
  }

  const std::vector<Group>& groups_;
  std::size_t end_, i_ = 0;
  MultileaderData data_;
  double textHeight_ = 0;
  bool ended_ = false, landingShown_ = true;
  std::uint64_t definition_ = 0;
};

}  // namespace

MultileaderData readMultileader(const Record& record) { return Reading(record).run(); }

}  // namespace atelier
