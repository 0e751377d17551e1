#pragma once

#include <array>
#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// The text of an aircraft's "<name>_vrconfig.txt", in which X-Plane finds the
/// seats of the user in VR (hotspots), and for manipulators of the cockpit how
/// a hand moves them (blocks). Lines count from 1.

/// A line between the BEGIN and the END of a block.
struct VrConfigDirective {
    std::string keyword;
    std::vector<std::string> values; ///< the words after the keyword
    std::uint32_t line = 0;
};

/// BEGIN_MANIP to END_MANIP.
struct VrConfigBlock {
    std::string keyword;            ///< of the manipulator, without "ATTR_manip_"
    std::vector<std::string> names; ///< as in Manipulator: at most as many as the
                                    ///< keyword has, without placeholders
    std::uint32_t firstLine = 0, lastLine = 0;
    std::vector<VrConfigDirective> directives;

    /// The first of a keyword; null if it has none.
    const VrConfigDirective* Find(std::string_view keyword) const;
    /// The keyword of the manipulator that its ACTION puts in place of the
    /// mouse's; its own keyword without one.
    std::string_view ActionKeyword() const;
};

/// BEGIN_TELEPORT_HOTSPOT to END_TELEPORT_HOTSPOT. Metres and degrees; x right,
/// y up, z aft. A value that is missing or malformed is empty.
struct VrConfigHotspot {
    std::string kind; ///< "SITTING"
    std::string name; ///< may contain blanks
    std::uint32_t firstLine = 0, lastLine = 0;
    std::optional<std::array<float, 6>> box;  ///< AABB: least x, y, z, then greatest
    std::optional<std::array<float, 3>> head; ///< PRESET_XYZ
    std::optional<float> psi, the, phi;
    std::uint32_t headLine = 0; ///< of PRESET_XYZ; 0 for none
};

enum class VrConfigRule : std::uint8_t {
    Header,   ///< the first three lines
    Nesting,  ///< BEGIN and END, and what stands between them
    Values,   ///< number and kind of a directive's values
    Complete, ///< a hotspot has each of its values once
};

/// A place at which the text breaks a rule of the format.
struct VrConfigFault {
    VrConfigRule rule = VrConfigRule::Header;
    std::uint32_t line = 0;
    std::string found;  ///< "'END_MANIP'", "2 numbers", "the end of the file"
    std::string needed; ///< "BEGIN_MANIP before it"
};

/// A word at the start of a line, or in the place of a kind, that this program
/// does not know. The simulator may know it.
struct VrConfigUnknown {
    std::string word;
    std::uint32_t line = 0;
};

/// Faults and unknown words of which this many are kept; real files have none.
inline constexpr std::size_t kMostVrConfigFaults = 1000;

struct VrConfigFile {
    std::vector<std::string> lines; ///< all bytes of the file; each line with its end, LF or CR LF,
                                    ///< unless the last has none
    std::uint32_t refPointLine = 0; ///< of REF_POINT_ACF: hotspots count from the
                                    ///< reference point; 0 for none
    std::vector<VrConfigBlock> blocks;
    std::vector<VrConfigHotspot> hotspots;
    std::vector<VrConfigUnknown> unknown; ///< the first ones
    std::vector<VrConfigFault> faults;    ///< the first ones, by line except for
                                          ///< what an end reveals of its beginning
    std::size_t moreFaults = 0, moreUnknown = 0;

    /// The end of most of its lines: "\n" or "\r\n"; of an empty file "\n".
    std::string_view LineEnd() const;
};

/// Reads any text. What is not understood is in `faults` or `unknown`; nothing
/// is lost from `lines`.
VrConfigFile ParseVrConfig(std::string_view text);
/// The text of its lines: byte for byte what was parsed.
std::string PrintVrConfig(const VrConfigFile& file);

/// Directives of a block, and lines outside of blocks and hotspots, that this
/// program knows.
std::vector<std::string_view> VrConfigKeywords();

/// "<name>_vrconfig.txt" beside "<name>.acf".
boost::filesystem::path VrConfigPath(const boost::filesystem::path& acf);

} // namespace CockpitModel
