#include "CockpitModel/XPlane/AttachedObjects.h"

#include "CockpitModel/XPlane/ObjectScan.h"
#include "CockpitModel/XPlane/XPAircraftCockpit.h"
#include "Sim/AcfFile.h"
#include "Utils/Files.h"
#include "Utils/Numbers.h"
#include "Utils/Paths.h"
#include "Utils/Text.h"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/lexical_cast.hpp>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace fs = boost::filesystem;

namespace CockpitModel {

namespace {

constexpr float kMetresPerFoot = 0.3048f;
constexpr std::int32_t kAircraftItself = -1; ///< as the part that an object is attached to

/// The first word of a value as a number; 0, with a fault, if it is none.
float NumberOf(std::string_view key, std::string_view value, AttachedEntry& entry) {
    const std::string_view word = value.substr(0, value.find_first_of(Utils::kBlanks));
    float number = 0;
    if (boost::conversion::try_lexical_convert(word.data(), word.size(), number) && std::isfinite(number))
        return number;
    entry.faults.push_back("has \"" + std::string(word) + "\" as its " + std::string(key) +
                           ", which is not a number; read as 0");
    return 0;
}

/// The last value of each key of one entry.
using EntryKeys = std::map<std::string_view, std::string_view>;

/// A key that controls do not depend on, so that a bad value is not worth a message.
std::int32_t WholeNumber(const EntryKeys& keys, std::string_view key, std::int32_t fallback) {
    const auto found = keys.find(key);
    if (found == keys.end())
        return fallback;
    const std::string_view word = found->second.substr(0, found->second.find_first_of(Utils::kBlanks));
    return Utils::ParseWhole<std::int32_t>(word).value_or(fallback);
}

AttachedEntry EntryOf(std::uint32_t number, const EntryKeys& keys) {
    AttachedEntry entry;
    entry.number = number;
    const auto read = [&](std::string_view key) {
        const auto found = keys.find(key);
        return found == keys.end() ? 0.0f : NumberOf(key, found->second, entry);
    };
    if (const auto file = keys.find("_v10_att_file_stl"); file != keys.end())
        entry.file = file->second;
    entry.place =
        Utils::Vector3(read("_v10_att_x_acf_prt_ref"), read("_v10_att_y_acf_prt_ref"), read("_v10_att_z_acf_prt_ref")) *
        kMetresPerFoot;
    for (const char* angle : {"_v10_att_phi_ref", "_v10_att_the_ref", "_v10_att_psi_ref"})
        entry.turned |= read(angle) != 0;
    entry.flags = static_cast<std::uint32_t>(WholeNumber(keys, "_obj_flags", 0));
    entry.onPart = WholeNumber(keys, "_v10_att_part", kAircraftItself) != kAircraftItself;
    entry.mayBeHidden = keys.contains("_obj_hide_dataref");
    return entry;
}

/// The names from the aircraft's folder down to an entry's file; empty if the path leads out of the folder.
std::vector<std::string> NamesOf(const std::string& file) {
    if (fs::path(file).has_root_path())
        return {};
    std::vector<std::string> names{"objects"}, pieces;
    boost::split(pieces, file, boost::is_any_of("/\\"), boost::token_compress_on);
    for (const std::string& piece : pieces) {
        if (piece.empty() || piece == ".")
            continue;
        if (piece != "..")
            names.push_back(piece);
        else if (names.empty())
            return {};
        else
            names.pop_back();
    }
    return names;
}

std::string ProblemOf(const fs::path& path, const fs::path& acf) {
    boost::system::error_code error;
    if (fs::is_directory(path, error))
        return "is a folder";
    if (IsSameFile(path, acf))
        return "is the .acf file itself";
    if (const std::string tooLarge = Utils::TooLargeText(path); !tooLarge.empty())
        return "is too large: " + tooLarge;
    return Utils::OpenFile(path).is_open() ? "" : "cannot be read";
}

/// Sorts the entries of an .acf into the cockpit object itself, the objects to read and the remarks.
class Selection {
public:
    Selection(const fs::path& acfPath, const fs::path& cockpitObject) : acf(acfPath), cockpit(cockpitObject) {}

    void Add(const AttachedEntry& entry) {
        const AttachedFile file = FindAttachedFile(acf, entry.file);
        if (!file.problem.empty()) {
            Remark(entry, file.problem);
            return;
        }
        if (IsSameFile(file.path, cockpit))
            AddCockpit(entry);
        else if (IsNew(file, entry.place))
            AddObject(entry, file);
    }

    AttachedObjects Take() {
        for (AttachedObject& object : found.objects)
            object.place -= found.cockpitPlace;
        return std::move(found);
    }

private:
    void Remark(const AttachedEntry& entry, const std::string& text) {
        found.remarks.push_back(AttachedName(entry.number, entry.file) + " " + text);
    }

    void RemarkOnValues(const AttachedEntry& entry) {
        for (const std::string& fault : entry.faults)
            Remark(entry, fault);
        if (entry.turned)
            Remark(entry, "has a rotation, which is not applied");
    }

    void AddCockpit(const AttachedEntry& entry) {
        if (!std::exchange(cockpitFound, true)) {
            found.cockpitPlace = entry.place;
            RemarkOnValues(entry);
        }
        if (entry.file != "../" + CockpitObjectPath(acf).filename().string())
            Remark(entry, "is the cockpit object by another name; it is not read again");
    }

    /// False for a file that was already seen at this place.
    bool IsNew(const AttachedFile& file, const Utils::Vector3& place) {
        boost::system::error_code error;
        const fs::path real = fs::canonical(file.path, error);
        return seen.insert({real.string(), place.x(), place.y(), place.z()}).second;
    }

    void AddObject(const AttachedEntry& entry, const AttachedFile& file) {
        const auto [touched, isNew] = canBeTouched.try_emplace(file.name, false);
        if (isNew) {
            std::ifstream stream = Utils::OpenFile(file.path);
            touched->second = CanBeTouched(stream);
            found.lookedAt.push_back(file.name);
        }
        if (!touched->second)
            return;
        RemarkOnValues(entry);
        found.objects.push_back({entry.number, file.name, file.path.string(), entry.place});
    }

    const fs::path& acf;
    const fs::path& cockpit;
    AttachedObjects found;
    bool cockpitFound = false;
    std::set<std::tuple<std::string, float, float, float>> seen;
    std::map<std::string, bool> canBeTouched; ///< by name
};

} // namespace

std::vector<AttachedEntry> ReadAttachedEntries(std::string_view acf) {
    std::map<std::uint32_t, EntryKeys> entries;
    Sim::ForEachAcfPropertyBelow(acf, "_obja/", [&](std::string_view rest, std::string_view value) {
        const std::size_t slash = std::min(rest.find('/'), rest.size());
        const auto number = Utils::ParseWhole<std::uint32_t>(rest.substr(0, slash));
        if (number && slash != rest.size())
            entries[*number][rest.substr(slash + 1)] = value;
    });
    std::vector<AttachedEntry> list;
    for (const auto& [number, keys] : entries)
        if (AttachedEntry entry = EntryOf(number, keys); !entry.file.empty())
            list.push_back(std::move(entry));
    return list;
}

AttachedFile FindAttachedFile(const fs::path& acf, const std::string& file) {
    const std::vector<std::string> names = NamesOf(file);
    if (names.empty())
        return {{}, {}, "leads out of the aircraft's folder"};
    const fs::path folder = acf.parent_path();
    fs::path wanted = folder;
    for (const std::string& name : names)
        wanted /= name;
    const fs::path found = Utils::FindIgnoringCase(wanted);
    if (found.empty())
        return {{}, {}, "is not there"};
    AttachedFile result{found, found.lexically_relative(folder).generic_string(), ProblemOf(found, acf)};
    if (!result.problem.empty())
        result.path.clear();
    return result;
}

AttachedObjects FindAttachedObjects(const fs::path& acf, std::string_view acfText, const fs::path& cockpitObject) {
    Selection selection(acf, cockpitObject);
    for (const AttachedEntry& entry : ReadAttachedEntries(acfText))
        selection.Add(entry);
    return selection.Take();
}

std::string AttachedName(std::uint32_t number, const std::string& file) {
    return "attached object " + std::to_string(number) + " (" + file + ")";
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    boost::system::error_code error;
    return !a.empty() && !b.empty() && fs::equivalent(a, b, error) && !error;
}

} // namespace CockpitModel
