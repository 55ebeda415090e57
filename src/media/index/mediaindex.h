#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// What kept an index from being read, by the numbers that messages go by.
enum class IndexFault { notReadable = 1, isZero = 2, wrongVersion = 3, incomplete = 4, undefined = 5, none };

class MediaIndex;
struct IndexReading {
    IndexFault fault = IndexFault::undefined;
    std::shared_ptr<const MediaIndex> index;  ///< null with any fault
};

/// The media index in memory. Its names lie there in small letters, for the search, with a bit for each that was a
/// capital: so one text serves the search and the list, in less than 1.2 bytes a byte of the file.
class MediaIndex {
public:
    /// Where an entry begins in the text that is searched.
    using Place = std::uint32_t;
    static constexpr char innerSeparator = '\xFF';  ///< no UTF-8 holds it

    /// From its file. Takes its time: 100 ms for 60 MB. Entries whose folder is not in the index are passed over.
    [[nodiscard]] static IndexReading Read(const std::string& path);
    [[nodiscard]] static IndexReading Parse(std::string text);

    [[nodiscard]] std::string Name(Place place) const;    ///< of the file or folder
    [[nodiscard]] std::string Folder(Place place) const;  ///< that it lies in, with the separator

    /// All entries, folded. Each ends in a zero byte; in it stands `innerSeparator` where the file has a single one.
    [[nodiscard]] std::string_view SearchedText() const { return std::string_view(text).substr(begin, end - begin); }
    [[nodiscard]] std::size_t MemoryUsed() const;  ///< bytes

private:
    [[nodiscard]] IndexFault Arrange();
    void TakeEntry(std::size_t from, std::size_t length);
    void FoldInto(std::size_t from, std::size_t length);
    [[nodiscard]] std::string_view EntryAt(Place place) const;
    [[nodiscard]] std::size_t FolderCount() const { return folderPlaces.size() - 1; }

    struct OddLetter {
        Place place = 0;
        std::int32_t code = 0;
    };

    std::string text;  ///< the file, its entries folded where they lie, its folders as they were
    std::size_t begin = 0;
    std::size_t end = 0;                  ///< of the entries
    std::vector<std::uint64_t> capitals;  ///< a bit a byte of the entries: the capital of the letter that stands there
    std::vector<OddLetter> oddLetters;    ///< of which no capital leads back, by place
    std::vector<Place> folderPlaces;      ///< in `text`; the last one is where the folders end
};

}  // namespace zvr
