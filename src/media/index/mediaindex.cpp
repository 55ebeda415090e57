#include "media/index/mediaindex.h"

#include "media/index/foldcase.h"
#include "media/index/indexformat.h"
#include "platform/characters.h"
#include "platform/files.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace zvr {
namespace {

/// Of a file; larger ones would be 20 million songs.
constexpr std::size_t largestIndex = std::size_t{1} << 30U;
constexpr std::size_t bitsOfWord = 64;

/// Where the parts of a list lie that stand between separators. An empty list has no parts.
template <typename Visit>
void ForEachPart(const std::string& text, std::size_t from, std::size_t to, Visit visit) {
    while (from < to) {
        std::size_t next = from;
        while (true) {
            const void* const zero = std::memchr(text.data() + next, 0, to - next);
            next = zero == nullptr ? to : static_cast<std::size_t>(static_cast<const char*>(zero) - text.data());
            if (next + 1 >= to || text[next + 1] == '\0') {
                break;
            }
            ++next;
        }
        const bool last = next + 1 >= to;
        visit(from, (last ? to : next) - from);
        from = last ? to : next + indexSeparator.size();
    }
}

std::optional<std::size_t> FolderNumber(std::string_view digits) {
    std::size_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc{} && result.ptr == digits.data() + digits.size() ? std::optional(number)
                                                                                   : std::nullopt;
}

}  // namespace

IndexReading MediaIndex::Read(const std::string& path) {
    if (!files::Exists(path)) {
        return {IndexFault::notReadable, nullptr};
    }
    auto content = files::Read(path, largestIndex);
    return content ? Parse(std::move(*content)) : IndexReading{IndexFault::notReadable, nullptr};
}

IndexReading MediaIndex::Parse(std::string text) {
    auto index = std::make_shared<MediaIndex>();
    index->text = std::move(text);
    const IndexFault fault = index->Arrange();
    return {fault, fault == IndexFault::none ? std::move(index) : nullptr};
}

IndexFault MediaIndex::Arrange() {
    if (text.size() <= indexMagic.size()) {
        return IndexFault::isZero;
    }
    if (!text.starts_with(indexMagic)) {
        return IndexFault::wrongVersion;
    }
    const std::size_t entriesEnd = text.find(indexLineEnd, indexMagic.size());
    if (entriesEnd == text.npos) {
        return IndexFault::incomplete;
    }
    const std::size_t folders = entriesEnd + indexLineEnd.size();
    const std::size_t foldersEnd = std::min(text.find(indexLineEnd, folders), text.size());
    ForEachPart(text, folders, foldersEnd, [this](std::size_t from, std::size_t) {
        if (folderPlaces.size() <= mostIndexFolders) {  // one more: where the last one ends
            folderPlaces.push_back(static_cast<Place>(from));
        }
    });
    if (folderPlaces.size() <= mostIndexFolders) {
        folderPlaces.push_back(static_cast<Place>(foldersEnd + indexSeparator.size()));
    }
    folderPlaces.shrink_to_fit();
    begin = end = indexMagic.size();
    capitals.resize(entriesEnd / bitsOfWord + 1);
    ForEachPart(text, begin, entriesEnd, [this](std::size_t from, std::size_t length) { TakeEntry(from, length); });
    return IndexFault::none;
}

/// Moves an entry to the end of those taken so far, never past itself.
void MediaIndex::TakeEntry(std::size_t from, std::size_t length) {
    const std::string_view entry(text.data() + from, length);
    const std::size_t nameLength = entry.find('\0');
    if (nameLength == entry.npos || nameLength == 0 || entry.find(innerSeparator) != entry.npos) {
        return;
    }
    const auto number = FolderNumber(entry.substr(entry.rfind('\0') + 1));
    if (!number || *number >= FolderCount()) {
        return;
    }
    FoldInto(from, nameLength);
    for (std::size_t i = nameLength; i < length; ++i) {
        const char byte = text[from + i];
        text[end++] = byte == '\0' ? innerSeparator : byte;
    }
    text[end++] = '\0';  // behind the last entry there is the line's end to write it on
}

void MediaIndex::FoldInto(std::size_t from, std::size_t length) {
    const auto mark = [this](std::size_t place) {
        capitals[place / bitsOfWord] |= std::uint64_t{1} << place % bitsOfWord;
    };
    std::string letter;
    for (const std::size_t stop = from + length; from < stop;) {
        const auto byte = static_cast<unsigned char>(text[from]);
        if (byte < 0x80) {
            const bool capital = byte >= 'A' && byte <= 'Z';
            capitals[end / bitsOfWord] |= std::uint64_t{capital} << end % bitsOfWord;
            text[end++] = static_cast<char>(byte + (capital ? 'a' - 'A' : 0));
            ++from;
            continue;
        }
        const text::Character character = text::CharacterAt({text.data(), stop}, from);
        const std::int32_t folded = character.code < 0 ? -1 : FoldedLetter(character.code);
        if (folded == character.code) {
            std::memmove(text.data() + end, text.data() + from, character.length);
            end += character.length;
        } else {
            if (text::CapitalLetter(folded) == character.code) {
                mark(end);
            } else {
                oddLetters.push_back({static_cast<Place>(end), character.code});
            }
            letter.clear();
            text::AppendCharacter(letter, folded);
            std::memcpy(text.data() + end, letter.data(), letter.size());
            end += letter.size();
        }
        from += character.length;
    }
}

std::string_view MediaIndex::EntryAt(Place place) const {
    const std::string_view rest = SearchedText().substr(place);
    return rest.substr(0, rest.find('\0'));
}

std::string MediaIndex::Name(Place place) const {
    const std::string_view entry = EntryAt(place);
    const std::string_view folded = entry.substr(0, entry.find(innerSeparator));
    auto odd = std::lower_bound(oddLetters.begin(), oddLetters.end(), place + begin,
                                [](const OddLetter& letter, std::size_t at) { return letter.place < at; });
    std::string name;
    for (std::size_t at = 0; at < folded.size();) {
        const std::size_t here = begin + place + at;
        const text::Character character = text::CharacterAt(folded, at);
        if (odd != oddLetters.end() && odd->place == here) {
            text::AppendCharacter(name, odd->code);
            ++odd;
        } else if ((capitals[here / bitsOfWord] >> here % bitsOfWord & 1U) != 0) {
            text::AppendCharacter(name, text::CapitalLetter(character.code));
        } else {
            name += folded.substr(at, character.length);
        }
        at += character.length;
    }
    return name;
}

std::string MediaIndex::Folder(Place place) const {
    const std::string_view entry = EntryAt(place);
    const std::size_t number = FolderNumber(entry.substr(entry.rfind(innerSeparator) + 1)).value_or(0);
    const std::size_t from = folderPlaces[number];
    return text.substr(from, folderPlaces[number + 1] - indexSeparator.size() - from);
}

std::size_t MediaIndex::MemoryUsed() const {
    return text.capacity() + capitals.capacity() * sizeof(capitals[0]) + oddLetters.capacity() * sizeof(oddLetters[0]) +
           folderPlaces.capacity() * sizeof(folderPlaces[0]);
}

}  // namespace zvr
