#include "platform/text.h"

#include "platform/characters.h"
#include "platform/common/utf8.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/utf16.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>

namespace zvr::text {
namespace {

constexpr std::string_view localeLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_@=;-";

/// The user's locale for one category, such as "LC_TIME", as ICU names it.
std::string LocaleFor(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') {
            continue;
        }
        std::array<char, ULOC_FULLNAME_CAPACITY> name{};
        UErrorCode error = U_ZERO_ERROR;
        uloc_canonicalize(value, name.data(), static_cast<std::int32_t>(name.size()) - 1, &error);
        const std::string locale = U_SUCCESS(error) ? name.data() : "";
        // ICU falls over a name that is none: only a language that it knows, in plain letters, gets through.
        const bool plain = locale.find_first_not_of(localeLetters) == locale.npos;
        const bool known = plain && *uloc_getISO3Language(locale.c_str()) != '\0' && locale != "en_US_POSIX";
        return known ? locale : "en_US";
    }
    return "en_US";
}

/// Latin-1 stands in for invalid bytes, so that names from an old disc still sort near where they belong.
std::u16string ToUtf16(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const utf8::Character character = utf8::At(text, at);
        const std::int32_t code = character.code < 0 ? static_cast<unsigned char>(text[at]) : character.code;
        if (code < 0x10000) {
            wide += static_cast<char16_t>(code);
        } else {
            wide += static_cast<char16_t>(U16_LEAD(code));
            wide += static_cast<char16_t>(U16_TRAIL(code));
        }
        at += character.length;
    }
    return wide;
}

void AppendUtf8(std::string& text, std::int32_t code) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, code);
    text.append(bytes.data(), length);
}

std::string FromUtf16(std::u16string_view wide) {
    std::string text;
    text.reserve(wide.size());
    for (std::size_t at = 0; at < wide.size();) {
        UChar32 code = 0;
        U16_NEXT(wide.data(), at, wide.size(), code);
        AppendUtf8(text, U_IS_SURROGATE(code) ? 0xFFFD : code);
    }
    return text;
}

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};

/// Made at the first comparison: loading its tables costs milliseconds that the start doesn't have. Null where ICU
/// has no data at all.
const UCollator* Collator() {
    static const std::unique_ptr<UCollator, CloseCollator> collator = [] {
        UErrorCode error = U_ZERO_ERROR;
        std::unique_ptr<UCollator, CloseCollator> made(ucol_open(LocaleFor("LC_COLLATE").c_str(), &error));
        if (U_FAILURE(error)) {
            made.reset();
        } else {
            ucol_setStrength(made.get(), UCOL_SECONDARY);
        }
        return made;
    }();
    return collator.get();
}

/// One way to write a moment, with the last answer: labels ask ten times a second for what changes once.
class Formatter {
public:
    Formatter(UDateFormatStyle timeStyle, UDateFormatStyle dateStyle) {
        UErrorCode error = U_ZERO_ERROR;
        // The times given are local ones already.
        format.reset(udat_open(timeStyle, dateStyle, LocaleFor("LC_TIME").c_str(), u"GMT", -1, nullptr, 0, &error));
        if (U_FAILURE(error)) {
            format.reset();
        }
    }

    const std::string& Write(const LocalTime& time) {
        const std::int64_t second =
            time.milliseconds >= 0 ? time.milliseconds / 1000 : (time.milliseconds - 999) / 1000;
        if (second != lastSecond || last.empty()) {
            lastSecond = second;
            last = Fresh(static_cast<double>(second) * 1000.0);
        }
        return last;
    }

private:
    struct Close {
        void operator()(void** opened) const { udat_close(opened); }
    };

    std::string Fresh(double milliseconds) const {
        std::array<char16_t, 256> wide{};
        UErrorCode error = U_ZERO_ERROR;
        const std::int32_t length = format == nullptr
                                        ? 0
                                        : udat_format(format.get(), milliseconds, wide.data(),
                                                      static_cast<std::int32_t>(wide.size()), nullptr, &error);
        if (U_FAILURE(error) || length < 0 || length > static_cast<std::int32_t>(wide.size())) {
            return {};
        }
        // Newer locale data have narrow and hard blanks, which many fonts lack.
        for (char16_t& unit : wide) {
            if (unit == u'\u202F' || unit == u'\u00A0') {
                unit = u' ';
            }
        }
        return FromUtf16({wide.data(), static_cast<std::size_t>(length)});
    }

    std::unique_ptr<void*, Close> format;
    std::int64_t lastSecond = 0;
    std::string last;
};

Formatter& FormatterOf(TimeFormat format) {
    switch (format) {
        case TimeFormat::shortTime: {
            static Formatter shortTime(UDAT_SHORT, UDAT_NONE);
            return shortTime;
        }
        case TimeFormat::longTime: {
            static Formatter longTime(UDAT_MEDIUM, UDAT_NONE);  // the longer ones name the time zone
            return longTime;
        }
        case TimeFormat::shortDate: {
            static Formatter shortDate(UDAT_NONE, UDAT_SHORT);
            return shortDate;
        }
        case TimeFormat::longDate:
            break;
    }
    static Formatter longDate(UDAT_NONE, UDAT_FULL);
    return longDate;
}

}  // namespace

std::string Utf8Of(std::string file) {
    if (!IsUtf16(file)) {
        return file;
    }
    const std::size_t high = file[0] == '\xFE' ? 0 : 1;  // place of the higher byte in a pair
    std::u16string wide;
    wide.reserve(file.size() / 2);
    for (std::size_t at = 2; at + 1 < file.size(); at += 2) {
        wide += static_cast<char16_t>(static_cast<unsigned char>(file[at + high]) << 8U |
                                      static_cast<unsigned char>(file[at + 1 - high]));
    }
    return FromUtf16(wide);
}

bool IsUtf8(std::string_view text) {
    return utf8::IsValid(text);
}

std::string FromLatin1(std::string_view bytes) {
    return utf8::FromLatin1(bytes);
}

Character CharacterAt(std::string_view text, std::size_t at) {
    const utf8::Character character = utf8::At(text, at);
    return {character.code, character.length};
}

void AppendCharacter(std::string& text, std::int32_t code) {
    AppendUtf8(text, code);
}

std::int32_t SmallLetter(std::int32_t code) {
    return u_tolower(code);
}

std::int32_t CapitalLetter(std::int32_t code) {
    return u_toupper(code);
}

std::string Lower(std::string_view text) {
    std::string lower;
    lower.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const utf8::Character character = utf8::At(text, at);
        if (character.code < 0) {
            lower += text[at];
        } else if (character.code < 0x80) {
            lower += LowerAscii(text[at]);
        } else {
            // One character for one and the same in every locale: command words go through here too.
            AppendUtf8(lower, u_tolower(character.code));
        }
        at += character.length;
    }
    return lower;
}

int CompareWithoutCase(std::string_view a, std::string_view b) {
    const UCollator* collator = Collator();
    if (collator == nullptr) {
        return Lower(a).compare(Lower(b));
    }
    const std::u16string wideA = ToUtf16(a);
    const std::u16string wideB = ToUtf16(b);
    return ucol_strcoll(collator, wideA.data(), static_cast<std::int32_t>(wideA.size()), wideB.data(),
                        static_cast<std::int32_t>(wideB.size()));
}

std::string SortKeyWithoutCase(std::string_view text) {
    const UCollator* collator = Collator();
    if (collator == nullptr) {
        return Lower(text);
    }
    const std::u16string wide = ToUtf16(text);
    const auto length = static_cast<std::int32_t>(wide.size());
    std::string key(wide.size() * 2 + 16, '\0');
    const auto fill = [&] {
        return static_cast<std::size_t>(ucol_getSortKey(collator, wide.data(), length,
                                                        reinterpret_cast<std::uint8_t*>(key.data()),
                                                        static_cast<std::int32_t>(key.size())));
    };
    std::size_t needed = fill();
    if (needed > key.size()) {
        key.resize(needed);
        needed = fill();
    }
    key.resize(needed == 0 ? 0 : needed - 1);  // ends in a zero byte of its own
    return key;
}

std::size_t Length(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += utf8::At(text, at).length) {
        ++count;
    }
    return count;
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
    std::size_t from = 0;
    for (; start > 0 && from < text.size(); --start) {
        from += utf8::At(text, from).length;
    }
    if (count >= text.size() - from) {
        return text.substr(from);  // no text has more characters than bytes
    }
    std::size_t to = from;
    for (; count > 0 && to < text.size(); --count) {
        to += utf8::At(text, to).length;
    }
    return text.substr(from, to - from);
}

std::string Format(const LocalTime& time, TimeFormat format) {
    return FormatterOf(format).Write(time);
}

std::string FromUtf8OrLatin1(std::string_view bytes) {
    return utf8::IsValid(bytes) ? std::string(bytes) : utf8::FromLatin1(bytes);
}

}  // namespace zvr::text
