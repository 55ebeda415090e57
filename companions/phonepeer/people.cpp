#include "people.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace phonepeer {
namespace {

using Names = std::array<std::string_view, 20>;

struct Script {
    std::size_t people;
    Names first;
    Names last;
};

// Family names that fit every first name of their script.
constexpr std::array scripts{
    Script{80,
           {"Anna",  "Björn", "Carla", "Dieter", "Élodie", "Frank", "Greta", "Henrik", "Inés", "João",
            "Katja", "Lukas", "Mária", "Nils",   "Olga",   "Paul",  "Renée", "Søren",  "Thea", "Viktor"},
           {"Berg", "Carlsen", "Dupont", "Ekström", "Fischer", "García", "Hoffmann", "Ibsen",  "Jørgensen", "Keller",
            "Löwe", "Müller",  "Nowak",  "Öberg",   "Pérez",   "Quast",  "Rossi",    "Strauß", "Ünal",      "Winter"}},
    Script{60,
           {"Αλέξανδρος", "Βασίλης",    "Γιώργος", "Δημήτρης", "Ευάγγελος", "Ζήσης", "Ηλίας",
            "Θανάσης",    "Ιωάννης",    "Κώστας",  "Λευτέρης", "Μιχάλης",   "Νίκος", "Ξενοφών",
            "Οδυσσέας",   "Παναγιώτης", "Ραφαήλ",  "Σταύρος",  "Τάσος",     "Φώτης"},
           {"Αθανασίου", "Βλάχος",    "Γεωργίου",  "Δήμου",   "Ευσταθίου", "Ζαχαρίου", "Ηλιάδης",
            "Θεοδώρου",  "Ιωαννίδης", "Καλογήρου", "Λάμπρου", "Μακρής",    "Νικολάου", "Ξανθός",
            "Οικονόμου", "Παππάς",    "Ρήγας",     "Σαμαράς", "Τσάκαλος",  "Χατζής"}},
    Script{60,
           {"Алексей", "Борис",   "Вера", "Галина", "Дмитрий", "Евгения",  "Зоя",   "Илья",   "Катерина", "Лидия",
            "Михаил",  "Надежда", "Олег", "Полина", "Руслан",  "Светлана", "Тимур", "Ульяна", "Фёдор",    "Юлия"},
           {"Бондаренко", "Гончар",   "Дорошенко", "Ермоленко", "Живаго",    "Заяц",     "Иваненко",
            "Коваль",     "Лысенко",  "Мельник",   "Науменко",  "Остапенко", "Петренко", "Романюк",
            "Савчук",     "Ткаченко", "Филипенко", "Черных",    "Шевченко",  "Щербак"}},
};

std::string Numbered(const char* format, std::size_t number) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

/// Everybody has a mobile; some are also reached at home, at work, by fax or mail, and one by something else.
void AddNumbers(std::vector<PhoneEntry>& entries, const std::string& name, std::size_t person) {
    entries.push_back({name, Numbered("+44 7700 900%03zu", person), "/M"});
    if (person % 4 == 0) {
        entries.push_back({name, Numbered("+49 30 23125 %03zu", person), "/H"});
    }
    if (person % 5 == 1) {
        entries.push_back({name, Numbered("+44 20 7946 0%03zu", person), "/W"});
    }
    if (person % 20 == 2) {
        entries.push_back({name, Numbered("+49 30 23125 %03zu", person + 500), "/F"});
    }
    if (person % 20 == 3) {
        entries.push_back({name, Numbered("person%zu@example.org", person), "/@"});
    }
    if (person == 7) {
        entries.push_back({name, "+1 202 555 0107", "/P"});
    }
}

}  // namespace

std::vector<PhoneEntry> MadeUpPeople() {
    std::vector<PhoneEntry> entries;
    std::size_t person = 0;
    for (const Script& script : scripts) {
        for (std::size_t i = 0; i < script.people; ++i, ++person) {
            const std::string_view first = script.first[i % script.first.size()];
            const std::string_view last = script.last[(7 * i + i / script.first.size()) % script.last.size()];
            AddNumbers(entries, std::string(last) + ", " + std::string(first), person);
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const PhoneEntry& a, const PhoneEntry& b) { return a.name < b.name; });
    return entries;
}

}  // namespace phonepeer
