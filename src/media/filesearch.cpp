#include "media/filesearch.h"

#include "platform/text.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <unordered_set>

namespace zvr {
namespace {

/// What a list is sorted by. The keys lie far apart in memory, and eight bytes tell most of them apart.
struct SortRow {
    std::uint64_t beginning = 0;  ///< of the key, behind what all keys begin with
    std::uint32_t place = 0;      ///< of key and entry before the sorting
};

/// Number of bytes that all keys begin with.
std::size_t SharedLength(const std::vector<std::string>& keys) {
    std::string_view shared = keys.empty() ? std::string_view{} : keys.front();
    for (const std::string& key : keys) {
        const auto differ = std::mismatch(shared.begin(), shared.end(), key.begin(), key.end()).first;
        shared = shared.substr(0, static_cast<std::size_t>(differ - shared.begin()));
    }
    return shared.size();
}

}  // namespace

bool FileEntry::HasFullName(std::string_view fullName) const {
    return fullName.size() == path.size() + name.size() && fullName.ends_with(name) && fullName.starts_with(path);
}

void FileSearch::Yield() {
    loop.LetPendingEventsRun();
    abort = abort || loop.IsQuitting();
}

void FileSearch::Scan(const std::string& folder, bool recurse, bool includeFolders, std::string_view extensions,
                      std::vector<FileEntry>& entries) {
    // Folders still to come, the next one last: depth first without a stack as deep as the folders are.
    std::vector<std::string> waiting{folder};
    std::unordered_set<std::string> seen;
    while (!waiting.empty() && !abort) {
        const std::string next = std::move(waiting.back());
        waiting.pop_back();
        if (recurse && !seen.insert(files::RealPath(next)).second) {
            continue;  // a link back to where the scan has been: without this it would have no end
        }
        std::vector<std::string> subfolders;
        if (!ScanOne(next, recurse, includeFolders, extensions, entries, subfolders)) {
            return;
        }
        waiting.insert(waiting.end(), std::make_move_iterator(subfolders.rbegin()),
                       std::make_move_iterator(subfolders.rend()));
    }
}

bool FileSearch::ScanOne(const std::string& folder, bool recurse, bool includeFolders, std::string_view extensions,
                         std::vector<FileEntry>& entries, std::vector<std::string>& subfolders) {
    const std::string path = folder.ends_with(files::separator) ? folder : folder + files::separator;
    const bool driveRoot = drives.IsRoot(path);
    Yield();
    if (abort) {
        return false;
    }
    files::Enumerate(path, [&](const files::Found& found) {
        const bool parent = found.name == "..";
        const bool hidden = (found.attributes & files::attributeHidden) != 0 && !parent;
        if ((found.attributes & files::attributeDirectory) != 0) {
            if (includeFolders && !hidden && !(parent && driveRoot)) {
                entries.push_back({path, std::string(found.name), found.attributes});
            }
            if (recurse && !parent) {
                subfolders.push_back(path + std::string(found.name));
            }
        } else if (!hidden && ExtensionMatches(found.name, extensions)) {
            entries.push_back({path, std::string(found.name), found.attributes});
        }
        Yield();
        return !abort;
    });
    return !abort;
}

void FileSearch::AppendDrives(std::vector<FileEntry>& entries) const {
    for (const Drive& drive : drives.List()) {
        entries.push_back({drive.path, ".", 0});
    }
}

/// Without case.
static void SortByName(const std::vector<FileEntry>& entries, std::span<std::int32_t> order) {
    std::vector<std::string> keys;
    keys.reserve(order.size());
    for (const std::int32_t entry : order) {
        keys.push_back(text::SortKeyWithoutCase(entries[static_cast<std::size_t>(entry)].name));
    }
    const std::size_t shared = SharedLength(keys);
    std::vector<SortRow> rows;
    rows.reserve(order.size());
    for (const std::string& key : keys) {
        rows.push_back(
            {text::Beginning(std::string_view(key).substr(shared)), static_cast<std::uint32_t>(rows.size())});
    }
    const std::vector<std::int32_t> before(order.begin(), order.end());
    std::sort(rows.begin(), rows.end(), [&keys, &before](const SortRow& a, const SortRow& b) {
        if (a.beginning != b.beginning) {
            return a.beginning < b.beginning;
        }
        const int difference = keys[a.place].compare(keys[b.place]);
        // Names that differ in case alone stand in the order of their numbers as texts: 10 before 9.
        return difference != 0 ? difference < 0 : std::to_string(before[a.place]) < std::to_string(before[b.place]);
    });
    std::transform(rows.begin(), rows.end(), order.begin(),
                   [&before](const SortRow& row) { return before[row.place]; });
}

std::vector<std::int32_t> DisplayOrder(const std::vector<FileEntry>& entries, bool keepScanOrder) {
    std::vector<std::int32_t> order(entries.size());
    std::iota(order.begin(), order.end(), 0);
    if (!keepScanOrder) {
        const auto behindParent = std::partition(order.begin(), order.end(), [&entries](std::int32_t entry) {
            return entries[static_cast<std::size_t>(entry)].name == "..";
        });
        SortByName(entries, {behindParent, order.end()});
    }
    return order;
}

}  // namespace zvr
