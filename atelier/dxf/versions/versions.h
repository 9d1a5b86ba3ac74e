// Which versions know which records, groups and header variables, as one table that the exporter walks.
// Reference: DXF reference, "What's new" of each release; R12 is the release 11/12 reference.
#pragma once
#include <string_view>

namespace atelier::dxf {

// "AC1032" for "R2018"; empty for an unknown name. Known: R12, R2000, R2004, R2007, R2010, R2013, R2018.
std::string_view acadVersion(std::string_view release);
// "R2018" for "AC1032"; for a version between two releases the later one.
std::string_view releaseNamed(std::string_view version);

// Whether the version knows records of that type. Types that the table doesn't have count as known.
bool knowsType(std::string_view version, std::string_view type);
// Whether the version knows that group of such a record; section: the subclass mark before the group.
bool knowsGroup(std::string_view version, std::string_view type, std::string_view section, int code);
bool knowsVariable(std::string_view version, std::string_view name);

}  // namespace atelier::dxf
