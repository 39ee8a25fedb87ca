// Whole runs of `pedigreewatch-tools animal`: what is written under which names, what is refused, what a card says.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "page/animal_style.h"
#include "page/page.h"
#include "support/page_reading.h"
#include "support/program_run.h"
#include "support/sha256.h"
#include "support/steer_lines.h"
#include "tools/animal_command.h"

namespace pedigreewatch::test {
namespace {

// Bram and Tess are full sibs, Puck their half sib; Pup is of Bram and Puck, Kid of Bram and Tess.
const std::string village =
    "id;name;sex;birthdate;sire;dam;breeder;colour\n"
    "rex;Rex;m;01-01-2001;;;Jansen;red\n"
    "saar;Saar;f;01-01-2001;;;Jansen;black\n"
    "mies;-;f;01-01-2001;;;Smit;black\n"
    "bram;Bram;m;02-03-2013;rex;saar;Jansen;red\n"
    "tess;Tess;f;02-03-2013;rex;saar;Jansen;black\n"
    "puck;<Puck>;f;01-01-2014;rex;mies;Smit;red\n"
    "pup;Pup;m;01-01-2016;bram;puck;Smit;red\n"
    "kid;Kid;f;01-01-2016;bram;tess;Smit;red\n";

WholeRun animal(std::vector<std::string> arguments, const std::string& data = village, const SteerLines& steer = {}) {
  arguments.insert(arguments.begin(), "animal");
  return run_program_on(files_of(data, steer), tools_with(arguments));
}

SteerLines with_colours(const std::string& language = "en") {
  SteerLines steer;
  steer.language = language;
  steer.colours = "2\nred\nblack";
  return steer;
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string fact(const std::string& label, const std::string& text) {
  return "<dt>" + label + "</dt><dd>" + text + "</dd>";
}

TEST(AnimalRun, TellsTheFactsOfAnAnimal) {
  const WholeRun run = animal({"pup"}, village, with_colours());
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.console, "dogs_pup.html: the card of \"pup\"; open it in a browser\n");
  const std::string page = run.file("dogs_pup.html");
  EXPECT_TRUE(has(page, ">pup Pup</h2>"));
  EXPECT_TRUE(has(page, fact("Sex", "male")));
  EXPECT_TRUE(has(page, fact("Born", "01-01-2016")));
  EXPECT_TRUE(has(page, fact("Breeder", "Smit (animals in all: 4)")));
  EXPECT_TRUE(has(page, fact("Colour", "red (animals in all: 5)"))) << page;
  EXPECT_TRUE(has(page, fact("Inbreeding (F)", "12.50 %, as far as its ancestors are known")));
  // Today are Bram, Tess, Puck, Pup and Kid, with Pup 0.3125, 0.1875, 0.3125, 0.5625 and
  // (0.3125 + 0.1875) / 2 = 0.25: 1.625 / 5. Kid: 0.375, 0.375, 0.125, 0.25, 0.625: 0.35.
  EXPECT_TRUE(has(page,
                  "32.50 % with the animals born 2007 to 2016 with both parents known (5); place 1 of the 2 "
                  "animals born in 2016 (1 is the lowest)"))
      << page;
  EXPECT_TRUE(has(page,
                  "20.00 % of the genes of the animals born 2007 to 2016 with both parents known (5); "
                  "descendants among them: 0; the animal itself is one of them"));
  EXPECT_TRUE(has(page, fact("Offspring", "none in the data")));
  EXPECT_TRUE(has(page, "<th scope=\"row\">rex</th><td>Rex</td><td>2001</td><td>12.50</td><td>100.0</td>"));
  EXPECT_TRUE(has(page, "<th scope=\"row\">2</th><td>2 of 2</td><td>2 of 2</td>"));
  EXPECT_TRUE(has(page, "<th scope=\"row\">3</th><td>0 of 4</td><td>0 of 4</td>"));
}

TEST(AnimalRun, TellsWhatAnUntoldSexIsKnownBy) {
  const std::string data = village +
                           "tom;;?;01-01-2014;rex;mies;Smit;red\n"
                           "kim;;;01-01-2014;rex;mies;Smit;red\nsam;;;01-01-2014;rex;mies;Smit;red\n"
                           "zoe;;f;01-01-2017;tom;kim;Smit;red\n";
  const auto sex_of = [&](const std::string& id) {
    const std::string page = animal({id}, data, with_colours()).file("dogs_" + id + ".html");
    const std::size_t begin = page.find("<dt>Sex</dt>");
    return page.substr(begin, page.find("</dd>", begin) - begin);
  };
  EXPECT_EQ(sex_of("tom"), "<dt>Sex</dt><dd>not told; male, as the sire of its young");
  EXPECT_EQ(sex_of("kim"), "<dt>Sex</dt><dd>not told; female, as the dam of her young");
  EXPECT_EQ(sex_of("sam"), "<dt>Sex</dt><dd>not told");
  EXPECT_EQ(sex_of("zoe"), "<dt>Sex</dt><dd>female");
}

std::string with_founder_heading(const std::string& page) {
  const std::size_t heading = page.find("<h3>The founders that the inbreeding comes from</h3>");
  return heading == std::string::npos ? std::string() : page.substr(heading, page.find("<h3>", heading + 1) - heading);
}

TEST(AnimalRun, DividesInbreedingAmongFounders) {
  const std::string kid = with_founder_heading(animal({"kid"}).file("dogs_kid.html"));
  EXPECT_TRUE(has(kid, "<p>Its inbreeding of 25.00 %, divided among the founders"));
  EXPECT_TRUE(has(kid, "<th scope=\"row\">rex</th><td>Rex</td><td>2001</td><td>12.50</td><td>50.0</td>")) << kid;
  EXPECT_TRUE(has(kid, "<th scope=\"row\">saar</th><td>Saar</td><td>2001</td><td>12.50</td><td>50.0</td>"));
  EXPECT_FALSE(has(kid, "mies"));
  EXPECT_FALSE(has(kid, "others"));
  EXPECT_EQ(with_founder_heading(animal({"bram"}).file("dogs_bram.html")), "") << "not inbred";
}

TEST(AnimalRun, NamesUnknownParentsAmongTheFounders) {
  // Half of what p and q have in common, their dam or sire, is from an unknown parent: f(p, q) = 1/8.
  const std::string data =
      "id;sex;birthdate;sire;dam\nrex;m;01-01-2001;;\nkim;f;01-01-2002;rex;\nx;m;01-01-2001;;\ny;m;01-01-2001;;\n"
      "p;m;01-01-2003;x;kim\nq;f;01-01-2003;y;kim\nz;m;01-01-2004;p;q\n";
  const std::string z = with_founder_heading(animal({"z"}, data).file("dogs_z.html"));
  EXPECT_TRUE(has(z, "<th scope=\"row\">the unknown dam of kim</th><td></td><td>6.25</td><td>50.0</td>")) << z;
  EXPECT_TRUE(has(z, "<th scope=\"row\">rex</th><td>2001</td><td>6.25</td><td>50.0</td>"));
  const std::string by_sire =
      "id;sex;birthdate;sire;dam\nsaar;f;01-01-2001;;\nkim;m;01-01-2002;;saar\nx;f;01-01-2001;;\ny;f;01-01-2001;;\n"
      "p;m;01-01-2003;kim;x\nq;f;01-01-2003;kim;y\nz;m;01-01-2004;p;q\n";
  EXPECT_TRUE(has(with_founder_heading(animal({"z"}, by_sire).file("dogs_z.html")), "the unknown sire of kim"));
}

/// A line to which each generation adds a founder, up to so many; z is of two half sibs at its end.
std::string line_of_founders(int founders) {
  std::string data = "id;sex;birthdate;sire;dam\n", last = "a1";
  for (int k = 1; k <= founders; ++k) data += "a" + std::to_string(k) + ";m;01-01-1950;;\n";
  for (int k = 2; k <= founders; ++k) {
    const std::string next = "b" + std::to_string(k), year = std::to_string(1950 + k);
    data += next + ";m;01-01-" + year + ";" + last + ";a" + std::to_string(k) + "\n";
    last = next;
  }
  data += "s;m;01-01-1980;" + last + ";\nd;f;01-01-1980;" + last + ";\nz;m;01-01-1982;s;d\n";
  return data;
}

TEST(AnimalRun, NamesTenFoundersAndSumsUpTheOthers) {
  const auto founders_of_z = [](int founders) {
    return with_founder_heading(animal({"z"}, line_of_founders(founders)).file("dogs_z.html"));
  };
  // F = 1/8, of which the last founder of a line has a half, the one before a quarter, and so on.
  const std::string ten = founders_of_z(10), twelve = founders_of_z(12);
  EXPECT_TRUE(has(ten, "<th scope=\"row\">a10</th><td>1950</td><td>6.25</td><td>50.0</td>")) << ten;
  EXPECT_TRUE(has(ten, "<th scope=\"row\">a1</th>"));
  EXPECT_FALSE(has(ten, "others"));
  EXPECT_EQ(times_in(twelve, "<th scope=\"row\">a"), 11U) << "ten and the others";
  // The last two are (1/8) (1/2)^11 each: 0.0061 points each, 0.0122 together.
  EXPECT_TRUE(has(twelve, "<th scope=\"row\">all others (2)</th><td></td><td>0.01</td><td>0.1</td>")) << twelve;
}

/// Two lines from one ancestor, with unrelated mates, of so many generations each; z is of their last ones.
std::string far_kin(int generations) {
  std::string data = "id;sex;birthdate;sire;dam\nrex;m;01-01-1950;;\n";
  for (const std::string line : {"s", "d"}) {
    for (int k = 1; k <= generations; ++k) {
      const bool is_last_dam = k == generations && line == "d";
      data += line + std::to_string(k) + (is_last_dam ? ";f" : ";m") + ";01-01-" + std::to_string(1950 + 2 * k) + ";" +
              (k == 1 ? "rex" : line + std::to_string(k - 1)) + ";\n";
    }
  }
  const std::string last = std::to_string(generations);
  return data + "z;m;01-01-2010;s" + last + ";d" + last + "\n";
}

TEST(AnimalRun, NamesACommonAncestorHoweverFarAway) {
  for (const int generations : {2, 12}) {
    const std::string z = animal({"z"}, far_kin(generations)).file("dogs_z.html");
    EXPECT_FALSE(has(z, "no known common ancestor")) << generations;
    EXPECT_TRUE(has(z, "<td>1950</td>")) << generations;
  }
  EXPECT_TRUE(has(animal({"bram"}).file("dogs_bram.html"), "The parents have no known common ancestor."));
}

TEST(AnimalRun, SpeaksDutchWithDutchNumbers) {
  const WholeRun run = animal({"bram"}, village, with_colours("nl"));
  EXPECT_EQ(run.console, "dogs_bram.html: de kaart van \"bram\"; open hem in een browser\n");
  const std::string page = run.file("dogs_bram.html");
  EXPECT_TRUE(has(page, "<html lang=\"nl\">"));
  EXPECT_TRUE(has(page, fact("Fokker", "Jansen (dieren in totaal: 4)")));
  EXPECT_TRUE(has(page, fact("Inteelt (F)", "0,00 %, voor zover de voorouders bekend zijn")));
  EXPECT_TRUE(has(page, "De ouders hebben geen bekende gemeenschappelijke voorouder."));
  EXPECT_TRUE(has(page, fact("Nakomelingen", "2 (mannelijk: 1, vrouwelijk: 1); partners: 2; waarmee gefokt is: 0")));
  const std::string kid = animal({"kid"}, village, with_colours("nl")).file("dogs_kid.html");
  EXPECT_TRUE(has(
      kid,
      "<h3>De stamdieren waar de inteelt vandaan komt</h3>\n<p>Zijn inteelt van 25,00 %, verdeeld over de stamdieren "));
}

TEST(AnimalRun, OfAnUnknownParentNoInbreedingIsTold) {
  const std::string page = animal({"rex"}).file("dogs_rex.html");
  EXPECT_TRUE(has(page, fact("Inbreeding (F)", "cannot be told: a parent is unknown")));
  EXPECT_FALSE(has(page, "Where the inbreeding comes from"));
  EXPECT_TRUE(has(page, "F \xE2\x80\x93</text>"));
  EXPECT_EQ(times_in(page, ">sire unknown</text>"), 2U) << "in either drawing";
  EXPECT_FALSE(has(page, "stands here more than once"));
}

TEST(AnimalRun, DrawsSiresAboveDamsAndMarksWhereLinesMeet) {
  const std::string page = animal({"pup"}).file("dogs_pup.html");
  const std::string wide = page.substr(page.find("fa-wide\" role"));
  const std::size_t grandsire = wide.find(">sire&#39;s sire, rex"), sire = wide.find(">sire, bram"),
                    own = wide.find(">pup, "), dam = wide.find(">dam, puck"),
                    granddam = wide.find(">dam&#39;s dam, mies");
  EXPECT_LT(grandsire, sire);
  EXPECT_LT(sire, own);
  EXPECT_LT(own, dam);
  EXPECT_LT(dam, granddam);
  EXPECT_NE(granddam, std::string::npos);
  // Twice in each of the two drawings; nobody else stands there more than once.
  EXPECT_EQ(times_in(page, "<tspan class=\"fa-mark\">A</tspan> rex"), 4U);
  EXPECT_EQ(times_in(page, "class=\"fa-box fa-twice\""), 4U);
  EXPECT_TRUE(has(page, "stands here more than once"));
  EXPECT_FALSE(has(page, "data-animal=")) << "there is nothing to press in a page of its own";
}

TEST(AnimalRun, ListsOffspringByMateAndYearWithTheirOwn) {
  const std::string page = animal({"rex"}).file("dogs_rex.html");
  EXPECT_TRUE(has(page,
                  "<th scope=\"row\">saar</th><td>Saar</td><td>2013</td><td><span class=\"fa-young\">bram (2), "
                  "tess (1)</span></td>"));
  EXPECT_TRUE(has(page, "<th scope=\"row\">mies</th><td></td><td>2014</td><td><span class=\"fa-young\">puck (1)"));
}

/// A sire with as many mates, each with so many young in 2005.
std::string large_family(int mates, int young) {
  std::string data = "id;sex;birthdate;sire;dam\nrex;m;01-01-2001;;\n";
  for (int mate = 0; mate < mates; ++mate) {
    for (int k = 0; k < young; ++k) {
      const std::string dam = "d" + std::to_string(mate);
      data += dam + "-" + std::to_string(k) + ";f;01-01-2005;rex;" + dam + "\n";
    }
  }
  return data;
}

TEST(AnimalRun, TellsHowManyMoreOffspringThereAre) {
  const auto card = [](int mates, int young) {
    return animal({"rex"}, large_family(mates, young)).file("dogs_rex.html");
  };
  EXPECT_FALSE(has(card(1, 60), ", and "));
  const std::string many_young = card(1, 61);
  EXPECT_TRUE(has(many_young, "d0-59 (0), and 1 more<"));
  EXPECT_FALSE(has(many_young, "d0-60"));
  EXPECT_FALSE(has(card(300, 1), "not shown"));
  EXPECT_TRUE(has(card(301, 1), "<p>rows of mates and years that are not shown: 1</p>"));
}

TEST(AnimalRun, LeavesOutWhatIsNoNameOrNoColumn) {
  const std::string page = animal({"mies"}).file("dogs_mies.html");
  EXPECT_TRUE(has(page, ">mies</h2>"));
  const std::string without = animal({"b"}, "id;sex;birthdate;sire;dam\nb;m;01-01-2001;a;\n").file("dogs_b.html");
  EXPECT_FALSE(has(without, ">Name</th>"));
  EXPECT_FALSE(has(without, "Breeder"));
  const std::string parent = animal({"a"}, "id;sex;birthdate;sire;dam\nb;m;01-01-2001;a;\n").file("dogs_a.html");
  EXPECT_TRUE(has(parent, fact("Born", "not known: it has no line of its own, only as a parent")));
}

TEST(AnimalRun, WritesOneFileEachOrAllTogether) {
  const WholeRun each = animal({"pup", "kid", "pup"});
  EXPECT_EQ(each.exit_status, 0);
  EXPECT_EQ(each.files.size(), 4U) << "the two files of the run, and a card for either animal";
  const WholeRun together = animal({"--together", "pup", "kid"});
  EXPECT_EQ(together.console, "dogs_cards.html: 2 cards; open it in a browser\n");
  EXPECT_EQ(together.files.size(), 3U);
  EXPECT_EQ(times_in(together.file("dogs_cards.html"), "<article"), 2U);
}

TEST(AnimalRun, AnUnknownIdIsToldAndTheOthersAreWritten) {
  const WholeRun run = animal({"nobody", "pup"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "\"nobody\": no animal has this identification; left out\n");
  EXPECT_EQ(run.files.count("dogs_pup.html"), 1U);
  SteerLines dutch;
  dutch.language = "nl";
  const WholeRun none = animal({"niemand"}, village, dutch);
  EXPECT_EQ(none.exit_status, 1);
  EXPECT_EQ(none.messages,
            "\"niemand\": geen dier heeft deze identificatie; weggelaten\n"
            "geen van deze dieren staat in de gegevens; er is niets geschreven\n");
  EXPECT_EQ(none.files.size(), 2U);
}

TEST(AnimalRun, RefusesWrongArguments) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{}, {"--together"}, {"--loud", "pup"}, {"--years", "2001", "pup"}}) {
    const WholeRun run = animal(arguments);
    EXPECT_EQ(run.exit_status, 2);
    EXPECT_TRUE(has(run.messages, "Try: pedigreewatch-tools animal --help")) << run.messages;
    EXPECT_EQ(run.files.size(), 2U);
  }
  std::vector<std::string> many(1000, "pup");
  EXPECT_EQ(animal(many).exit_status, 0);
  many.emplace_back("pup");
  EXPECT_TRUE(has(animal(many).messages, "at most 1000 identifications were expected"));
}

TEST(AnimalRun, TakesAnotherReferencePopulation) {
  const std::string page = animal({"--years", "2001-2001", "pup"}).file("dogs_pup.html");
  // Rex 0.25, Saar and Mies 0.125 each.
  EXPECT_TRUE(has(page, "16.67 % with the animals born 2001 (3)")) << page;
  EXPECT_TRUE(has(page, "0.00 % of the genes of the animals born 2001 (3); descendants among them: 0<"));
}

TEST(AnimalRun, FilesOfOddIdentificationsStayInTheirFolder) {
  const std::string odd =
      "id;sex;birthdate;sire;dam\n../x;m;01-01-2001;;\nA 1;m;01-01-2001;;\na 1;f;01-01-2001;;\nplan;m;01-01-2001;;\n"
      "\xE9;m;01-01-2001;;\n-v;f;01-01-2001;;\n";
  const WholeRun run = animal({"--", "../x", "A 1", "a 1", "plan", "\xC3\xA9", "-v"}, odd);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  for (const std::string name : {"dogs_..=2Fx.html", "dogs_A=201.html", "dogs_a=201=2.html", "dogs_=70lan.html",
                                 "dogs_=C3=A9.html", "dogs_-v.html"}) {
    EXPECT_EQ(run.files.count(name), 1U) << name;
  }
}

TEST(FileNamePart, DifferentIdentificationsHaveDifferentNames) {
  EXPECT_EQ(file_name_part("NL-12.3"), "NL-12.3");
  EXPECT_EQ(file_name_part("a/b"), "a=2Fb");
  EXPECT_EQ(file_name_part("a=2Fb"), "a=3D2Fb");
  EXPECT_EQ(file_name_part("a_b"), "a=5Fb");
  EXPECT_EQ(file_name_part("Cards"), "=43ards");
  EXPECT_EQ(file_name_part("cards2"), "cards2");
}

TEST(AnimalPage, AllowsItsTwoStylesAndNothingElse) {
  const std::string page = animal({"puck"}).file("dogs_puck.html");
  EXPECT_TRUE(has(page, "content=\"default-src 'none'; style-src 'sha256-" + sha256_in_base64(page_style()) +
                            "' 'sha256-" + sha256_in_base64(animal_style()) +
                            "'; base-uri 'none'; form-action 'none'\""));
  EXPECT_FALSE(has(page, "<script"));
  EXPECT_FALSE(has(page, " style="));
  EXPECT_FALSE(has(page, "<Puck>")) << "names are text";
  EXPECT_TRUE(has(page, "&lt;Puck&gt;"));
}

}  // namespace
}  // namespace pedigreewatch::test
