#include "media/index/indexcrawl.h"

#include "media/mediatypes.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr const char* root = "/";

bool ByName(const std::string& a, const std::string& b) {
    const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                             [](char x, char y) { return text::LowerAscii(x) == text::LowerAscii(y); });
    if (left == a.end() || right == b.end()) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
    return static_cast<unsigned char>(text::LowerAscii(*left)) < static_cast<unsigned char>(text::LowerAscii(*right));
}

std::string WithoutSeparator(std::string path) {
    while (path.size() > 1 && path.ends_with(files::separator)) {
        path.pop_back();
    }
    return path;
}

}  // namespace

IndexCrawl::IndexCrawl(IndexPlan plan, IndexWriter& writer) : plan(std::move(plan)), writer(writer) {
    for (std::string& base : this->plan.bases) {
        base = WithoutSeparator(std::move(base));
    }
}

IndexCounts IndexCrawl::Run() {
    std::vector<std::optional<files::Identity>> before;
    for (const std::string& base : plan.bases) {
        before.push_back(files::IdentityOf(base));
        if (before.back()) {
            devices.insert(before.back()->device);
        }
    }
    for (const std::string& base : plan.bases) {
        AddBase(base);
    }
    for (std::size_t i = 0; i < links.size(); ++i) {
        const Link link = links[i];  // the list grows meanwhile
        AddLink(link);
    }
    for (std::size_t i = 0; i < plan.bases.size(); ++i) {
        if (before[i] && files::IdentityOf(plan.bases[i]) != before[i]) {
            counts.baseThatWent = plan.bases[i];
        }
    }
    return counts;
}

void IndexCrawl::AddBase(const std::string& base) {
    if (!Visit(base) || !MayHold(base)) {
        return;
    }
    if (base == root) {
        AddTree(base, {}, std::nullopt);
        return;
    }
    const IndexWriter::Mark before = writer.Now();
    const std::string parent = files::FolderOf(base);
    const std::optional<int> parentNumber = writer.AddFolder(parent);
    const IndexWriter::Mark begun = writer.Now();
    AddTree(base + files::separator, std::string_view(base).substr(parent.size()), parentNumber);
    if (writer.Now() == begun) {
        writer.GoBack(before);
    }
}

void IndexCrawl::AddLink(const Link& link) {
    const std::string path = link.parent + link.name;
    const auto target = files::IdentityOf(path);
    way.reset();
    const std::string real = files::RealPath(path);
    const bool isWanted =
        !IsSystems(real) || (!plan.staysOnBases && plan.isSystem(WithoutSeparator(files::FolderOf(real))));
    if (!target || (plan.staysOnBases && !devices.contains(target->device)) || !isWanted ||
        !visited.insert(*target).second) {
        return;
    }
    way = Way{path, real == root ? "" : real};
    const IndexWriter::Mark before = writer.Now();
    const std::optional<int> parent = writer.AddFolder(link.parent);
    const IndexWriter::Mark begun = writer.Now();
    AddTree(path + files::separator, link.name, parent);
    if (writer.Now() == begun) {
        writer.GoBack(before);
    }
}

void IndexCrawl::AddTree(const std::string& path, std::string_view name, std::optional<int> parent) {
    if (plan.onFolder) {
        plan.onFolder(path);
    }
    const Listing listing = List(path);
    const IndexWriter::Mark before = writer.Now();
    const long foldersBefore = counts.folders;
    if (parent && !name.empty()) {
        writer.AddEntry(name, *parent);
        ++counts.folders;
    }
    const std::optional<int> number = writer.AddFolder(path);
    const IndexWriter::Mark begun = writer.Now();
    AddFiles(listing.files, number);
    for (const std::string& folder : listing.folders) {
        if (const std::string below = path + folder; Visit(below)) {
            AddTree(below + files::separator, folder, number);
        }
    }
    if (writer.Now() == begun) {
        writer.GoBack(before);
        counts.folders = foldersBefore;
    }
}

void IndexCrawl::AddFiles(const std::vector<std::string>& files, std::optional<int> folder) {
    const auto count = static_cast<long>(files.size());
    if (!folder) {
        counts.foldersBeyond += count > 0 ? 1 : 0;
        counts.filesBeyond += count;
        return;
    }
    for (const std::string& file : files) {
        writer.AddEntry(file, *folder);
    }
    counts.files += count;
}

IndexCrawl::Listing IndexCrawl::List(const std::string& path) {
    Listing listing;
    const bool whole = files::Enumerate(path, [&](const files::Found& found) {
        if (found.name == ".." || (found.attributes & files::attributeHidden) != 0) {
            return true;
        }
        const bool isFolder = (found.attributes & files::attributeDirectory) != 0;
        if (!isFolder && !ExtensionMatches(found.name, plan.extensions)) {
            return true;
        }
        if (!MayHold(found.name)) {
            return true;
        }
        if (!isFolder) {
            listing.files.emplace_back(found.name);
        } else if ((found.attributes & files::attributeLink) != 0) {
            links.push_back({path, std::string(found.name)});
        } else {
            listing.folders.emplace_back(found.name);
        }
        return true;
    });
    counts.foldersUnread += whole ? 0 : 1;
    std::sort(listing.files.begin(), listing.files.end(), ByName);
    std::sort(listing.folders.begin(), listing.folders.end(), ByName);
    return listing;
}

/// False for a folder that was there before, or that is not to be looked into.
bool IndexCrawl::Visit(const std::string& path) {
    if (IsSystems(path)) {
        return false;
    }
    const auto identity = files::IdentityOf(path);
    counts.foldersUnread += identity ? 0 : 1;
    return identity && (!plan.staysOnBases || devices.contains(identity->device)) && visited.insert(*identity).second;
}

bool IndexCrawl::IsSystems(const std::string& path) const {
    if (way && plan.isSystem(way->target)) {
        return false;
    }
    const std::string real = way ? way->target + path.substr(way->path.size()) : path;
    return plan.isSystem(real) && std::none_of(plan.bases.begin(), plan.bases.end(), [&](const std::string& base) {
               return plan.isSystem(base) && (real == base || real.starts_with(base + files::separator));
           });
}

bool IndexCrawl::MayHold(std::string_view name) {
    const bool can = IndexWriter::CanHold(name);
    counts.namesLeftOut += can ? 0 : 1;
    return can;
}

}  // namespace zvr
