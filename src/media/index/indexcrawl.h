#pragma once

#include "media/index/indexwriter.h"
#include "platform/files.h"

#include <functional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace zvr {

/// Where to look for media, and what counts.
struct IndexPlan {
    std::vector<std::string> bases;  ///< absolute folders
    std::string extensions;          ///< ";" separated
    bool staysOnBases = false;       ///< leaves alone what is mounted in them, unless it is a base itself
    /// Folders of the system, looked into only where a base lies in one, or where a link leads to a place inside of one
    /// and `staysOnBases` is false. Absolute paths, no trailing separator.
    std::function<bool(const std::string& path)> isSystem;
    std::function<void(const std::string& path)> onFolder;  ///< may be empty
};

struct IndexCounts {
    long files = 0;
    long folders = 0;          ///< that are entries themselves
    long foldersBeyond = 0;    ///< with media, left out because the index has as many folders as it can have
    long filesBeyond = 0;      ///< in these
    long namesLeftOut = 0;     ///< that the index can't hold
    long foldersUnread = 0;    ///< not, or not to their end
    std::string baseThatWent;  ///< a base that was there at the beginning and isn't any more: the index is not whole
};

/// Walks through folders and writes down what media they hold: each folder that holds some, however deep, then its
/// files, then its subfolders, by name. What is hidden is left out; a folder comes once however many links lead to it.
class IndexCrawl {
public:
    IndexCrawl(IndexPlan plan, IndexWriter& writer);

    /// All bases.
    [[nodiscard]] IndexCounts Run();

private:
    struct Listing {
        std::vector<std::string> files;
        std::vector<std::string> folders;
    };
    struct Link {
        std::string parent;  ///< with the separator
        std::string name;
    };

    void AddBase(const std::string& base);
    void AddLink(const Link& link);
    /// An entry for the folder, and all that is in it; nothing where no media is. No `parent`: no entry.
    void AddTree(const std::string& path, std::string_view name, std::optional<int> parent);
    void AddFiles(const std::vector<std::string>& files, std::optional<int> folder);
    [[nodiscard]] Listing List(const std::string& path);
    [[nodiscard]] bool Visit(const std::string& path);
    [[nodiscard]] bool IsSystems(const std::string& path) const;
    [[nodiscard]] bool MayHold(std::string_view name);

    IndexPlan plan;
    IndexWriter& writer;
    IndexCounts counts;
    /// Where the walk has left the folders of the bases.
    struct Way {
        std::string path;    ///< of the link
        std::string target;  ///< its real path, empty for "/"
    };
    std::optional<Way> way;
    std::vector<Link> links;          ///< to folders: they come last, so that a folder is found at its own place first
    std::set<std::uint64_t> devices;  ///< of the bases
    struct Hash {
        std::size_t operator()(const files::Identity& identity) const {
            return static_cast<std::size_t>(identity.number * 31 + identity.device);
        }
    };
    std::unordered_set<files::Identity, Hash> visited;
};

}  // namespace zvr
