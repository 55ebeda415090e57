#include "media/index/indexwriter.h"

#include "media/index/indexformat.h"
#include "platform/text.h"

namespace zvr {
namespace {

void Append(std::string& list, std::string_view text) {
    if (!list.empty()) {
        list += indexSeparator;
    }
    list += text;
}

}  // namespace

bool IndexWriter::CanHold(std::string_view name) {
    return name.find(indexLineEnd) == name.npos && text::IsUtf8(name);
}

std::optional<int> IndexWriter::AddFolder(std::string_view path) {
    if (static_cast<std::size_t>(folderCount) == mostIndexFolders) {
        return std::nullopt;
    }
    Append(folders, path);
    return folderCount++;
}

void IndexWriter::AddEntry(std::string_view name, int folder) {
    Append(entries, name);
    entries += '\0';
    entries += std::to_string(folder);
}

void IndexWriter::GoBack(const Mark& mark) {
    entries.resize(mark.entries);
    folders.resize(mark.folders);
    folderCount = mark.folderCount;
}

std::string IndexWriter::TakeText() {
    std::string text = std::move(entries);
    text.insert(0, indexMagic);
    text.append(indexLineEnd).append(folders);
    GoBack({});
    return text;
}

}  // namespace zvr
