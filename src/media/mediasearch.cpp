#include "media/mediasearch.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "media/index/foldcase.h"
#include "media/mediaplayer.h"
#include "platform/entryscan.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <utility>
#include <vector>

namespace zvr {
namespace {

constexpr std::size_t shortestTerm = 2;  ///< characters; one letter finds all
constexpr std::string_view boxBeforeItIsFilled = "txtSearchTerm";
/// Bytes of names between two looks at the event loop: two milliseconds on one processor.
constexpr std::size_t scanStep = std::size_t{16} << 20U;

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == text.npos ? std::string_view{} : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

const char* MessageOf(IndexFault fault) {
    switch (fault) {
        case IndexFault::notReadable:
            return "MEDIASEARCH_ERR_NOT_READABLE";
        case IndexFault::isZero:
            return "MEDIASEARCH_ERR_IS_ZERO";
        case IndexFault::wrongVersion:
            return "MEDIASEARCH_ERR_WRONG_VERSION";
        case IndexFault::incomplete:
            return "MEDIASEARCH_ERR_INCOMPLETE";
        case IndexFault::undefined:
        case IndexFault::none:
            break;
    }
    return "MEDIASEARCH_ERR_UNDEFINED";
}

}  // namespace

/// What was found: rows are numbers, their texts are told when they are seen.
struct MediaSearch::Results {
    std::shared_ptr<const MediaIndex> index;
    std::vector<MediaIndex::Place> places;
};

MediaSearch::MediaSearch(Program& program)
    : tmrCheckIndex(program.platform.loop, [this] { CheckIndexAge(); }), program(program) {
    tmrCheckIndex.SetInterval(Milliseconds{1000});
}

void MediaSearch::Load() {
    LoadModuleForm(program, form);
    resultlist = &form.Add(ControlKind::grid, "resultlist");
    txtSearchTerm = &form.Add(ControlKind::textBox, "txtSearchTerm");
    form.focus = txtSearchTerm;
    form.onActivate = [this] {
        program.commanddispatcher.pushModuleHistory(form.name);
        if (mediaSearchResult.empty()) {
            ShowReadiness();
        }
        ReadIndexIfNewer();
    };
    txtSearchTerm->events.onChange = [this] { SearchAsTyped(); };
    resultlist->events.onClick = [this](Point) {
        if (program.godfather.singleClickListSelect) {
            PlaySelectedSearchresult(false);
        }
    };
    resultlist->events.onDoubleClick = [this] {
        if (!program.godfather.singleClickListSelect) {
            PlaySelectedSearchresult(false);
        }
    };
}

void MediaSearch::TypeCharacter(std::string_view character) {
    txtSearchTerm->TypeText(character);
    form.focus = txtSearchTerm;
    SearchAsTyped();
}

void MediaSearch::ClearSearchTerm() {
    form.focus = txtSearchTerm;
    txtSearchTerm->SetText("");
    SearchAsTyped();
}

void MediaSearch::ReadIndexIfNewer() {
    const auto written = files::Modified(IndexFile());
    if (!written || readingIndex || (timeOfReading && written->milliseconds <= timeOfReading->milliseconds)) {
        return;
    }
    readingIndex = true;
    indexIsLoaded = false;
    ShowReadiness();
    const auto reading = std::make_shared<IndexReading>();
    const LocalTime begun = program.platform.loop.Now();
    program.platform.background.Do([reading, path = IndexFile()] { *reading = MediaIndex::Read(path); },
                                   lifetime.Guard([this, reading, begun] {
                                       if (reading->fault == IndexFault::none) {
                                           timeOfReading = begun;
                                       }
                                       IndexWasRead(*reading);
                                   }));
}

void MediaSearch::IndexWasRead(const IndexReading& reading) {
    readingIndex = false;
    indexIsLoaded = reading.fault == IndexFault::none;
    if (indexIsLoaded) {
        index = reading.index;
    }
    ShowReadiness();
    if (!indexIsLoaded) {
        program.showMessage(program.languageText(MessageOf(reading.fault)));
        return;
    }
    // What was typed while it was being read, or stands there since the last visit.
    if (!txtSearchTerm->text->text.empty()) {
        SearchAsTyped();
    }
}

void MediaSearch::ShowReadiness() {
    if (creatingIndex && !readingIndex) {
        mediaSearchResult.clear();  // an empty status gives its place to the one of the making
        return;
    }
    mediaSearchResult = program.languageText(readingIndex    ? "MEDIASEARCH_STATUS_READINGINDEX"
                                             : indexIsLoaded ? "MEDIASEARCH_STATUS_READY"
                                                             : "MEDIASEARCH_STATUS_ERROR");
}

void MediaSearch::ShowCount() {
    mediaSearchResult =
        program.languageText("MEDIASEARCH_STATUS_FILESFOUND") + " " + std::to_string(shown->places.size());
}

void MediaSearch::SearchAsTyped() {
    const std::string term(Trimmed(txtSearchTerm->text->text));
    if (text::Length(term) >= shortestTerm && term != boxBeforeItIsFilled) {
        Search(term);
        return;
    }
    ++searchGeneration;
    resultlist->grid->Clear();
    shown = nullptr;
    ShowReadiness();
}

void MediaSearch::Search(std::string_view term) {
    if (readingIndex) {
        return;  // the end of the reading comes back to it
    }
    if (!indexIsLoaded) {
        program.showMessage(program.languageText("MEDIASEARCH_ERR_NOT_READ"));
        return;
    }
    const std::uint8_t own = ++searchGeneration;
    mediaSearchResult = program.languageText("MEDIASEARCH_STATUS_SEARCHING");
    std::vector<std::string> words;
    for (const std::string_view word : text::Split(term, ' ')) {
        words.push_back(FoldedText(word));
    }
    const auto results = std::make_shared<Results>(Results{index, {}});
    EntryScan scan(index->SearchedText(), std::move(words));
    // The rows of the search before stand until the new ones are there: an empty list in between would flicker.
    while (scan.Continue(scanStep, results->places)) {
        program.platform.loop.LetPendingEventsRun();
        if (searchGeneration != own || program.platform.loop.IsQuitting()) {
            return;
        }
    }
    ShowResults(results);
}

void MediaSearch::ShowResults(std::shared_ptr<const Results> results) {
    shown = std::move(results);
    const auto count = static_cast<int>(shown->places.size());
    Grid& grid = *resultlist->grid;
    grid.SetRedraw(false);
    grid.Clear();
    grid.SetRows(count, [this, of = shown](int row) {
        const MediaIndex::Place place = of->places[static_cast<std::size_t>(row) - 1];
        return GridRow{of->index->Name(place), row, ListIcon::none, resultlist->font.get().bold};
    });
    grid.Select(1);
    grid.SetRedraw(true);
    ShowCount();
}

std::optional<MediaSearch::Chosen> MediaSearch::Selected() {
    const auto row = static_cast<std::size_t>(resultlist->grid->Row());
    if (row == 0 || shown == nullptr) {
        return std::nullopt;
    }
    const MediaIndex::Place place = shown->places[row - 1];
    Chosen chosen{shown->index->Folder(place), {}, 0};
    chosen.fullName = chosen.folder + shown->index->Name(place);
    const auto attributes = files::Attributes(chosen.fullName);
    if (!attributes) {
        program.showMessage(program.languageText("MEDIASEARCH_FILEACCESSERROR"));
        return std::nullopt;
    }
    chosen.attributes = *attributes;
    return chosen;
}

void MediaSearch::ShowFolder(const std::string& folder) {
    program.mediaplayer.ReadDirectory(folder);
    program.dispatchCommand("mediaplayer.show");
}

void MediaSearch::PlaySelectedSearchresult(bool jumpToFolder) {
    const auto chosen = Selected();
    if (!chosen) {
        return;
    }
    const bool isFolder = (chosen->attributes & files::attributeDirectory) != 0;
    if (jumpToFolder) {
        ShowFolder(isFolder ? chosen->fullName : chosen->folder);
        return;
    }
    if (!isFolder) {
        program.mediaplayer.PlayAlone(chosen->fullName);
        return;
    }
    const std::string question = program.languageText("MEDIASEARCH_DISPLAYFOLDERQUESTION") + "\n\n" + chosen->fullName;
    if (program.showMessage(question, MessageButtons::yesNo) == MessageAnswer::yes) {
        ShowFolder(chosen->fullName);
    }
}

void MediaSearch::AddSelectedSearchresult2Playlist() {
    if (const auto chosen = Selected()) {
        program.mediaplayer.AddThis2Playlist(chosen->fullName, chosen->attributes);
        program.mediaplayer.DisplayPlaylistFilesInList();
    }
}

}  // namespace zvr
