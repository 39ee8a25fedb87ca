#include "statistics/breeder_list.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;

struct Listing {
  BreederList breeders;
  Lines console;
};

/// The one place where these tests call the operation.
Listing list_of(const PopulationStore& store, bool english = true) {
  TextOutput console = output_in(english);
  BreederList breeders = list_breeders(store, console);
  return {std::move(breeders), lines_of(console)};
}

Listing list_of(const std::vector<AnimalRecord>& animals, bool english = true) {
  return list_of(finished_store_of(animals), english);
}

Listing list_of(std::string_view numbered, bool english = true) {
  return list_of(numbered_store(numbered), english);
}

/// Texts one behind another, each filled up with blanks to the same width.
std::string in_columns(const std::vector<std::string>& texts, std::size_t width) {
  std::string all;
  for (const std::string& text : texts) all += text + std::string(width - text.size(), ' ');
  return all;
}

/// The slots in the order chosen, read from the console: the second number of each line of two.
std::vector<int> chosen_slots(const Lines& console) {
  std::vector<int> slots;
  for (const std::string& line : console) {
    if (line.size() == 24 && line[0] == ' ' && line.find_first_not_of(" 0123456789") == std::string::npos) {
      slots.push_back(std::stoi(line.substr(12)));
    }
  }
  return slots;
}

void add_animals(std::vector<AnimalRecord>& animals, std::string_view breeder, int count, std::int32_t year = 2000) {
  AnimalRecord animal;
  animal.breeder.assign(breeder);
  animal.birth_year = year;
  animals.insert(animals.end(), static_cast<std::size_t>(count), animal);
}

TEST(BreederList, HoldsTheDifferentBreedersInOrderOfFirstAppearance) {
  // All counts are 0 in the last ten years before 2030, so that the order of the slots stays.
  const Listing listing = list_of(
      "2000 breeder=Jansen\n2000\n2000 breeder=De_Groot\n2000 breeder=Jansen\n2000 breeder=jansen\n2030 "
      "breeder=Laat__x\n");
  EXPECT_EQ(listing.breeders.breeder_count, 4);
  EXPECT_EQ(listing.breeders.text, in_columns({"Jansen", "De Groot", "jansen", "Laat  x"}, 20));
  EXPECT_EQ(listing.breeders.entry(2), "De Groot            ");
}

TEST(BreederList, SlotsLieEndToEndOverTheEntries) {
  BreederList list;
  list.text = in_columns({"Abcdefghijklmnopqrst", "Uvw"}, 20);
  list.breeder_count = 2;
  EXPECT_EQ(list.slot(1), "Abcdefg");
  EXPECT_EQ(list.slot(2), "hijklmn");
  EXPECT_EQ(list.slot(3), "opqrstU");
  EXPECT_EQ(list.entry(2), "Uvw                 ");
}

TEST(BreederList, ConsoleInEnglish) {
  // Slot 1 is "Bakker ", slot 2 blank like the breeder of animals 3 to 5, slot 3 "      D".
  const Listing listing = list_of(
      "2000 breeder=Bakker\n2000 breeder=De_Groot\n2000\n2000\n2000\n2000 breeder=Jansen\n2000 breeder=Bakker\n");
  EXPECT_EQ(listing.console, (Lines{" breeders list made", "           3  different breeders found",
                                    " Number of top breeders            3", "           1           2",
                                    "           2           1", "           3           3"}));
}

TEST(BreederList, ConsoleInDutch) {
  const Listing listing = list_of("2000 breeder=Bakker\n", false);
  EXPECT_EQ(listing.console, (Lines{" fokkerlijst samengesteld", "           1  verschillende fokkers gevonden",
                                    " aantal topfokkers            1", "           1           1"}));
}

TEST(BreederList, SlotsAreRearrangedAndWhatLiesBeyondThemStays) {
  // Slots "Bakker ", blank and "      D" in the order 2, 1, 3; from character 22 on nothing moves.
  const Listing listing = list_of(
      "2000 breeder=Bakker\n2000 breeder=De_Groot\n2000\n2000\n2000\n2000 breeder=Jansen\n2000 breeder=Bakker\n");
  EXPECT_EQ(listing.breeders.text,
            "       Bakker       "
            "De Groot            "
            "Jansen              ");
  EXPECT_EQ(listing.breeders.entry(1), "       Bakker       ");
  EXPECT_EQ(listing.breeders.slot(2), "Bakker ");
}

TEST(BreederList, NoAnimalWithABreeder) {
  const Listing listing = list_of("2000\n2000\n");
  EXPECT_EQ(listing.console, (Lines{" breeders list made", "           0  different breeders found",
                                    " Number of top breeders            0"}));
  EXPECT_EQ(listing.breeders.breeder_count, 0);
  EXPECT_EQ(listing.breeders.top_breeder_count, 0);
  EXPECT_EQ(listing.breeders.text, "");
}

TEST(BreederList, AnEmptyStore) {
  EXPECT_EQ(list_of("").breeders.breeder_count, 0);
}

TEST(BreederList, APopulationWithoutBreederColumnHasOneDutchEntry) {
  const BreederList list = no_breeders();
  EXPECT_EQ(list.text, "geen fokkers        ");
  EXPECT_EQ(list.breeder_count, 1);
  EXPECT_EQ(list.top_breeder_count, 0);
}

std::string breeders_numbered(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += "2000 breeder=b" + std::to_string(i) + "\n";
  return text;
}

TEST(BreederList, NineBreedersAreAllTopBreeders) {
  EXPECT_EQ(list_of(breeders_numbered(9)).breeders.top_breeder_count, 9);
}

TEST(BreederList, TenBreedersWithFewAnimalsAreTenTopBreeders) {
  EXPECT_EQ(list_of(breeders_numbered(10)).breeders.top_breeder_count, 10);
}

TEST(BreederList, ElevenBreedersWithFewAnimalsAreTenTopBreeders) {
  const Listing listing = list_of(breeders_numbered(11));
  EXPECT_EQ(listing.breeders.top_breeder_count, 10);
  EXPECT_EQ(chosen_slots(listing.console).size(), 10U);
}

/// 100 breeders of whom `large` have names of 7 characters and `animals_each` recent animals. Their names also stand
/// end to end in the long names of the first 14 breeders, so that slots 1 to 40 are exactly these names.
std::vector<AnimalRecord> crowded_herdbook(int large, int animals_each) {
  std::string end_to_end;
  std::vector<std::string> short_names;
  for (int i = 11; i <= 50; ++i) {
    short_names.push_back("Breed" + std::to_string(i));
    end_to_end += short_names.back();
  }
  std::vector<AnimalRecord> animals;
  for (std::size_t at = 0; at < end_to_end.size(); at += 20) add_animals(animals, end_to_end.substr(at, 20), 1);
  for (int i = 0; i < 46; ++i) add_animals(animals, "a filler no. " + std::to_string(100 + i), 1);
  for (int i = 0; i < 40; ++i)
    add_animals(animals, short_names[static_cast<std::size_t>(i)], i < large ? animals_each : 1);
  return animals;
}

TEST(BreederList, FortyBreedersWithMoreThan250RecentAnimalsAreCutToThirty) {
  const Listing listing = list_of(crowded_herdbook(40, 251));
  EXPECT_EQ(listing.breeders.breeder_count, 100);
  EXPECT_EQ(listing.breeders.top_breeder_count, 30);
}

TEST(BreederList, MoreThan250RecentAnimalsMakeATopBreeder) {
  EXPECT_EQ(list_of(crowded_herdbook(12, 251)).breeders.top_breeder_count, 12);
  EXPECT_EQ(list_of(crowded_herdbook(12, 250)).breeders.top_breeder_count, 10);
  EXPECT_EQ(list_of(crowded_herdbook(29, 251)).breeders.top_breeder_count, 29);
  EXPECT_EQ(list_of(crowded_herdbook(31, 251)).breeders.top_breeder_count, 30);
}

TEST(BreederList, SlotsWithTheMostAnimalsComeFirst) {
  // Slot 1 "Aaaaaaa" 1 animal, slot 2 "Bbbbbbb" 3, slot 3 (characters 15 to 21) "CcccccA" 2: the list begins with the
  // long name and goes on with "Aaaaaaa", "Bbbbbbb" and "CcccccA". Slot 4 is characters 22 to 28, "aaaaaa ".
  std::vector<AnimalRecord> animals;
  add_animals(animals, "AaaaaaaBbbbbbbCccccc", 9);
  add_animals(animals, "Aaaaaaa", 1);
  add_animals(animals, "Bbbbbbb", 3);
  add_animals(animals, "CcccccA", 2);
  const Listing listing = list_of(animals);
  EXPECT_EQ(chosen_slots(listing.console), (std::vector<int>{2, 3, 1, 4}));
  EXPECT_EQ(listing.breeders.text,
            "BbbbbbbCcccccAAaaaaaaaaaaaa" + std::string(13, ' ') + "Bbbbbbb             CcccccA             ");
}

TEST(BreederList, OnATieTheLowestSlotWinsAlsoAmongZeros) {
  // Names of 8 characters and more are equal to no slot; no slot is blank: all counts are 0.
  std::vector<AnimalRecord> animals;
  add_animals(animals, "12345678901234567890", 3);
  add_animals(animals, "abcdefghijklmnopqrst", 8);
  add_animals(animals, "ABCDEFGHIJKLMNOPQRST", 5);
  EXPECT_EQ(chosen_slots(list_of(animals).console), (std::vector<int>{1, 2, 3}));
}

TEST(BreederList, RemainingSlotsFollowInTheirOldOrder) {
  // Twelve breeders with names of 20 characters, and slot 12 (characters 78 to 84) the name of the thirteenth: it is
  // chosen first, then slots 1 to 9; slots 10, 11 and 13 keep their order.
  std::vector<AnimalRecord> animals;
  std::string text;
  for (int i = 0; i < 12; ++i) {
    std::string name;
    for (int k = 0; k < 20; ++k) name += static_cast<char>('a' + (i + k) % 26);
    text += name;
    add_animals(animals, name, 1);
  }
  const std::string chosen = text.substr(77, 7);
  add_animals(animals, chosen, 1);
  const Listing listing = list_of(animals);
  EXPECT_EQ(chosen_slots(listing.console), (std::vector<int>{12, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(listing.breeders.text, chosen + text.substr(0, 77) + text.substr(84) + in_columns({chosen}, 20));
}

TEST(BreederList, AnimalsBornTenYearsBeforeTheLastYearDoNotCount) {
  // Slot 2 is blank: it stands for the animals without breeder, one born in 1991. Last year 2000 (another breeder).
  constexpr auto others = "1991\n2000 breeder=Zwart\n";
  EXPECT_EQ(chosen_slots(list_of(std::string("1990 breeder=Bakker\n") + others).console), (std::vector<int>{2, 1}));
  EXPECT_EQ(chosen_slots(list_of(std::string("1991 breeder=Bakker\n") + others).console), (std::vector<int>{1, 2}));
}

TEST(BreederList, AnimalsWithoutBirthYearAreNotRecent) {
  EXPECT_EQ(chosen_slots(list_of("breeder=Bakker\n1995\n2000 breeder=Zwart\n").console), (std::vector<int>{2, 1}));
}

TEST(BreederList, ABreederOfEightCharactersCountsInNoSlot) {
  // Slot 1 is "Janssen", slot 2 "s": five animals of Janssens count in neither, the one of "s" in slot 2.
  std::vector<AnimalRecord> animals;
  add_animals(animals, "Janssens", 5);
  add_animals(animals, "s", 1);
  EXPECT_EQ(chosen_slots(list_of(animals).console), (std::vector<int>{2, 1}));
}

TEST(BreederList, ASlotCountsTheBreederWhoseWholeNameItIs) {
  std::vector<AnimalRecord> animals;
  add_animals(animals, "Janssens", 5);
  add_animals(animals, "s", 1);
  add_animals(animals, "Janssen", 2);
  EXPECT_EQ(chosen_slots(list_of(animals).console), (std::vector<int>{1, 2, 3}));
}

TEST(BreederList, ASlotStraddlingTwoEntriesCountsItsOwnText) {
  // Slot 3 is the blanks of entry 1 and the first letter of entry 2: a breeder written with six leading blanks.
  std::vector<AnimalRecord> animals;
  add_animals(animals, "Bakker", 1);
  add_animals(animals, "Smit", 1);
  add_animals(animals, "      S", 2);
  EXPECT_EQ(chosen_slots(list_of(animals).console), (std::vector<int>{3, 1, 2}));
}

TEST(BreederList, AllBlankSlotsStandForTheAnimalsWithoutBreeder) {
  std::vector<AnimalRecord> animals;
  for (const char* name : {"a", "b", "c", "d"}) add_animals(animals, name, 1);
  add_animals(animals, "", 2);
  // Slots of one-letter names: 1 "a      ", 2 blank, 3 "      b", 4 blank.
  EXPECT_EQ(chosen_slots(list_of(animals).console), (std::vector<int>{2, 4, 1, 3}));
}

TEST(BreederListProgress, ComesEachHundredAnimalsWithTheBreedersFoundBefore) {
  std::vector<AnimalRecord> animals;
  for (int i = 1; i <= 200; ++i) add_animals(animals, "b" + std::to_string((i + 49) / 50), 1);
  // Animal 100 is the last of breeder 2; animal 200 the last of breeder 4.
  const Lines english = list_of(animals, true).console, dutch = list_of(animals, false).console;
  EXPECT_EQ(english[0], " breeder of          100  read, N breeder =            2");
  EXPECT_EQ(english[1], " breeder of          200  read, N breeder =            4");
  EXPECT_EQ(english[2], " breeders list made");
  EXPECT_EQ(dutch[0], " fokker van          100  gelezen, nfokker =            2");
  EXPECT_EQ(dutch[1], " fokker van          200  gelezen, nfokker =            4");
}

TEST(BreederListProgress, DoesNotCountTheBreederOfTheAnimalShown) {
  std::vector<AnimalRecord> animals;
  add_animals(animals, "first", 99);
  add_animals(animals, "second", 1);
  EXPECT_EQ(list_of(animals).console[0], " breeder of          100  read, N breeder =            1");
}

TEST(BreederListProgress, NinetyNineAnimalsShowNothing) {
  std::vector<AnimalRecord> animals;
  add_animals(animals, "first", 99);
  EXPECT_EQ(list_of(animals).console[0], " breeders list made");
}

TEST(BreederListProgress, StepGrowsWithThePopulation) {
  for (const auto& [count, step, lines] :
       {std::array{4000, 100, 40}, std::array{4001, 500, 8}, std::array{10000, 500, 20}, std::array{10001, 1000, 10},
        std::array{25000, 1000, 25}, std::array{25001, 5000, 5}}) {
    std::vector<AnimalRecord> animals;
    add_animals(animals, "first", count);
    const Lines console = list_of(animals).console;
    EXPECT_EQ(console[static_cast<std::size_t>(lines)], " breeders list made") << count;
    EXPECT_EQ(console[0], " breeder of " + number(step) + "  read, N breeder =            1");
  }
}

}  // namespace
}  // namespace pedigreewatch::test
