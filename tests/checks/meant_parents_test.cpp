// Which animal is meant by a mistyped parent: small herds in which it is known.
#include "checks/meant_parents.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/check_runs.h"
#include "support/planted_faults.h"

namespace pedigreewatch::test {
namespace {

/// Ten sires and thirty dams of 2000, numbered in a row, and two young of each dam in 2003; the first litter has the
/// sires `first` and `second`.
std::string herd_of_numbers(const std::string& first, const std::string& second) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 100; k < 140; ++k) data += std::to_string(k) + (k < 110 ? ";m;" : ";f;") + "01-02-2000;;\n";
  for (int k = 0; k < 60; ++k) {
    const std::string sire = k == 0 ? first : k == 1 ? second : std::to_string(100 + k / 6);
    data += std::to_string(200 + k) + ";m;05-06-2001;" + sire + ";" + std::to_string(110 + k / 2) + "\n";
  }
  return data;
}

TEST(FindMeantParents, ALitterMateTellsANumberInARow) {
  const CheckResult result = checked_sheep(herd_of_numbers("105", "1055"));
  EXPECT_EQ(serious_rows_of(result, ToolLanguage::english),
            std::vector<std::string>{
                "43|4|201|parent-one-letter|W|Father \"1055\" (1 young) has no line; is \"105\" (line 7) meant?"});
}

// HS-1100 is one digit from HS-1200 and from HS-1300. The ewe had three litters by the one; her twin of this litter has
// the other, and twins hardly ever have two fathers.
TEST(FindMeantParents, ATwinTellsMoreThanEarlierLittersOfTheSameEwe) {
  std::string data =
      "id;sex;birthdate;sire;dam\nHS-1200;m;01-02-1999;;\nHS-1300;m;01-02-1999;;\nHS-4711;f;01-02-1999;;\n";
  for (int k = 0; k < 6; ++k) {
    const std::string number = std::to_string(k), year = std::to_string(2001 + k / 2);
    data.append("HS-50").append(number).append(";m;05-06-").append(year).append(";HS-1300;HS-4711\n");
  }
  data += "HS-60;m;05-06-2004;HS-1200;HS-4711\nHS-61;m;05-06-2004;HS-1100;HS-4711\n";
  const CheckResult result = checked_sheep(data);
  ASSERT_EQ(count_of(result, FindingCode::parent_one_letter), 1);
  for (const Finding& finding : result.findings.list) {
    if (finding.code != FindingCode::parent_one_letter) continue;
    EXPECT_EQ(result.findings.texts.at(finding.other_text), "HS-1200");
  }
}

// Both sires have a number that is one digit from HS-483920; hs483950 is also written in another form, and nobody slips
// twice so easily as once.
TEST(FindMeantParents, ASlipInAnotherFormIsTwo) {
  const auto herd_of = [](const std::string& other_sire) {
    std::string data = "id;sex;birthdate;sire;dam\nHS-483927;m;01-02-1999;;\n" + other_sire + ";m;01-02-1999;;\n";
    const auto id_of = [](int number) { return "HS-" + std::to_string(100'000 + number * 39'119 % 890'000); };
    for (int k = 0; k < 21; ++k) data += id_of(k) + ";f;01-02-1999;;\n";
    for (int k = 0; k < 20; ++k) {
      const std::string sire = k % 2 == 0 ? "HS-483927" : other_sire;
      data += id_of(30 + k) + ";m;05-06-2001;" + sire + ";" + id_of(k) + "\n";
    }
    return data + id_of(60) + ";m;05-06-2002;HS-483920;" + id_of(20) + "\n";
  };
  EXPECT_EQ(count_of(checked_sheep(herd_of("HS-483950")), FindingCode::parent_one_letter), 0) << "equally good";
  const CheckResult result = checked_sheep(herd_of("hs483950"));
  ASSERT_EQ(count_of(result, FindingCode::parent_one_letter), 1);
  for (const Finding& finding : result.findings.list) {
    if (finding.code != FindingCode::parent_one_letter) continue;
    EXPECT_EQ(result.findings.texts.at(finding.other_text), "HS-483927");
  }
}

TEST(FindMeantParents, WithoutLitterMatesSeveralNumbersAreEquallyGood) {
  const CheckResult result = checked_sheep(herd_of_numbers("", "10"));
  EXPECT_EQ(count_of(result, FindingCode::parent_one_letter), 0);
  EXPECT_EQ(count_of(result, FindingCode::parent_missing), 1);
}

TEST(FindMeantParents, AnAnimalOfTheOtherSexOrTooYoungIsNotMeant) {
  const std::string herd =
      "id;sex;birthdate;sire;dam\nHS-1200;f;01-02-2000;;\nHS-1300;m;01-02-2003;;\nHS-4711;f;01-02-2000;;\n";
  EXPECT_EQ(count_of(checked_sheep(herd + "HS-5000;m;05-06-2003;hs1200;HS-4711\n"), FindingCode::parent_spelling), 0);
  EXPECT_EQ(count_of(checked_sheep(herd + "HS-5000;m;05-06-2003;hs1300;HS-4711\n"), FindingCode::parent_spelling), 0);
  EXPECT_EQ(count_of(checked_sheep(herd + "HS-5000;m;05-06-2005;hs1300;HS-4711\n"), FindingCode::parent_spelling), 1);
}

TEST(FindMeantParents, OfAnAnimalOfTheLastYearThatCanBeWritten) {
  const std::string herd = "id;sex;birthdate;sire;dam\nHS-1200;m;01-02-2000;;\nHS-4711;f;01-02-2000;;\n";
  const CheckResult result = checked_sheep(herd + "HS-5000;m;05-06-2147483647;hs1200;HS-4711\n");
  EXPECT_EQ(count_of(result, FindingCode::parent_spelling), 0);  // too old by two thousand million years
  EXPECT_EQ(count_of(result, FindingCode::parent_missing), 1);
}

// The ewes of 2000 have lambs in 2002, those of 2010 in 2012: 52007 and 72007 are both one sign away, but one of them
// would be twelve years old.
TEST(FindMeantParents, TheUsualAgeOfParentsTellsTwoNumbersApart) {
  std::string data = "id;sex;birthdate;sire;dam\nR-1;m;01-02-2000;;\nR-2;m;01-02-2010;;\n";
  const auto add_ewes = [&](int first, const std::string& born, const std::string& lambed, const std::string& parents) {
    for (int k = first; k < first + 40 * 113; k += 113) {
      const std::string ewe = "HS-" + std::to_string(k), lamb = "L" + std::to_string(k);
      data.append(ewe).append(";f;05-02-").append(born).append(";;\n");
      data.append(lamb).append(";m;08-03-").append(lambed).append(";").append(parents);
      data.append(k == 72007 ? "HS-X2007" : k == 52007 ? "" : ewe).append("\n");
    }
  };
  add_ewes(52007, "2000", "2002", "R-1;");
  add_ewes(72007, "2010", "2012", "R-2;");
  const CheckResult result = checked_sheep(data);
  ASSERT_EQ(count_of(result, FindingCode::parent_one_letter), 1);
  for (const Finding& finding : result.findings.list) {
    if (finding.code != FindingCode::parent_one_letter) continue;
    EXPECT_EQ(result.findings.texts.at(finding.text), "HS-X2007");
    EXPECT_EQ(result.findings.texts.at(finding.other_text), "HS-72007");
  }
}

// What scripts/measure-findings prints of many herds, on a few.
/// How sure it is that a slip of this weight was made, and not a parent of that weight rightly named, when nobody else
/// is in question: how common both are is estimated eight times, from equal shares, each as if there were one more.
double sureness_of(double slip, double genuine) {
  double slips = 1, others = 1;
  for (int round = 0; round < 8; ++round) {
    const double share = slips * slip / (slips * slip + others * genuine);
    slips = 1 + share;
    others = 2 - share;
  }
  return slips * slip / (slips * slip + others * genuine);
}

MeantParent meant_sire(const CheckResult& result, std::string_view written) {
  MissingParent missing = {1, ParentRole::sire};
  while (result.animals.ids.at(missing.id) != written) ++missing.id;
  const std::vector<MeantParent> meant =
      find_meant_parents(result.animals, {&missing, 1}, check_settings(sheep_steer()).limits, "m", 1);
  return meant.at(0);
}

/// Three animals of 2000, of which nobody's identification is near another's, and three of 2002: one of QR-8863, one of
/// `sire`, one of `written`.
std::string herd_of_three_young(const std::string& sire, const std::string& written) {
  return "id;sex;birthdate;sire;dam\n" + sire + ";m;01-02-2000;;\nQR-8863;m;01-02-2000;;\nLM-6041;f;01-02-2000;;\n" +
         "TU-1157;m;05-06-2002;QR-8863;\nVW-3308;m;05-06-2002;" + sire + ";\nXY-9924;m;05-06-2002;" + written + ";\n";
}

// Of six animals three were born in 2000, half of them sires; both parents known are two years old, and half a parent
// is added for each of the sixty ages. The sire has one of the three young of those years, and all six animals stand
// for three tenths of a young for each of one sex: 0.9 together.
double chance_of_one_young() {
  const double of_age = (2 + 0.5) / (2 + 0.5 * 60) / (0.5 * 3);
  return (1 + 0.9 * of_age) / (1.5 + 0.9 + 1);
}

// Nobody's identification is one letter from another's, which counts as a tenth among 9 digits in 7 places of 6.
double chance_of_tag_in_use() {
  return 0.1 / (1 + 9 * 7 * 6) / 6;
}

TEST(FindMeantParents, SlipAgeAndYoungAreWeighedAgainstARightName) {
  const CheckResult result = checked_sheep(herd_of_three_young("HS-4712", "HS-4711"));
  const double slip = 0.2 / 7 / 9;  // one digit for one of nine others in one of seven places
  EXPECT_NEAR(meant_sire(result, "HS-4711").sureness, sureness_of(slip * chance_of_one_young(), chance_of_tag_in_use()),
              1e-12);
}

TEST(FindMeantParents, ALeftOutCheckDigitIsOneTenthOfAllSlips) {
  const CheckResult result = checked_sheep(herd_of_three_young("HS-4712-9", "HS-4712"));
  // The sire's tag has two letters more. Its shape is the one of the others, who are five with seven letters.
  const double genuine = 0.1 / (1 + 9 * (7 * 5 + 9)) / 6;
  EXPECT_NEAR(meant_sire(result, "HS-4712").sureness, sureness_of(0.1 * chance_of_one_young(), genuine), 1e-12);
}

TEST(FindMeantParents, ATagUnlikeAllOthersIsRightlyNamedOnceInAMillion) {
  const CheckResult result = checked_sheep(herd_of_three_young("HS-4712", "HS-471Z"));
  const double slip = 0.1 / 7;  // a look-alike
  EXPECT_NEAR(meant_sire(result, "HS-471Z").sureness, sureness_of(slip * chance_of_one_young(), 1e-6 / 6), 1e-12);
}

TEST(FindMeantParents, AnUnknownSexHalvesAndUnknownYearsLeaveAllAnimals) {
  const std::string herd = "id;sex;birthdate;sire;dam\nHS-4712;;;;\nQR-8863;m;;;\nTU-1157;m;;QR-8863;\n";
  const CheckResult result = checked_sheep(herd + "VW-3308;m;;HS-4712;\nXY-9924;m;;HS-4711;\n");
  // One of three links; without years half of them are those of its sex, and one of half of the five animals is it.
  const double chance = (1 + 0.3 * 5 / 2 / (0.5 * 5)) / (1.5 + 0.3 * 5 / 2 + 1);
  const double genuine = 0.1 / (1 + 9 * 7 * 5) / 5;
  EXPECT_NEAR(meant_sire(result, "HS-4711").sureness, sureness_of(0.5 * 0.2 / 7 / 9 * chance, genuine), 1e-12);
}

/// The herd, and more litters of the sire who has no line, each of another dam and day.
std::string herd_of_litters(int litters) {
  std::string herd = herd_of_three_young("HS-4712", "HS-4711");
  for (int k = 1; k < litters; ++k) {
    const std::string number = std::to_string(k);
    herd += "Z" + number + "-" + number + number + "00;m;0" + number + "-08-2002;HS-4711;\n";
  }
  return herd;
}

// Who slips in one litter seldom does it again, but a thousandth is the least.
TEST(FindMeantParents, TheSameSlipInEachLitterIsSeldom) {
  for (const auto& [litters, again] :
       {std::pair{2, 0.1}, std::pair{3, 0.01}, std::pair{4, 0.001}, std::pair{5, 0.001}}) {
    SCOPED_TRACE(litters);
    const double animals = 5 + litters, near_year = (2 + litters) / 2.0;
    const double of_age = (2 + 0.5) / (2 + 0.5 * 60) / (0.5 * 3), first = 0.3 * animals / 2;
    const double chance = (1 + first * of_age) / (near_year + first + 1);
    const double genuine = 0.1 / (1 + 9 * 7 * animals) / animals;
    EXPECT_NEAR(meant_sire(checked_sheep(herd_of_litters(litters)), "HS-4711").sureness,
                sureness_of(0.2 / 7 / 9 * chance * again, genuine), 1e-12);
  }
}

// The ewe's other lamb of that day has HS-4712, and 97 of 100 litters have one sire: of the three others of a hundred
// half has the ewe's last mate again. One parent of two years is known, and half a parent of each of the sixty ages.
TEST(FindMeantParents, OfAHundredLittersNinetySevenHaveOneSire) {
  const CheckResult result = checked_sheep(
      "id;sex;birthdate;sire;dam\nHS-4712;m;01-02-2000;;\nQR-8863;m;01-02-2000;;\nLM-6041;f;01-02-2000;;\n"
      "TU-1157;m;05-06-2002;HS-4712;LM-6041\nXY-9924;m;05-06-2002;HS-4711;LM-6041\n");
  const double of_age = (1 + 0.5) / (1 + 0.5 * 60) / (0.5 * 3), first = 0.3 * 5 / 2;
  const double by_year = (1 + first * of_age) / (4 / 2.0 + first + 1);
  const double chance = 0.97 + 0.03 * (0.5 + 0.5 * by_year);
  const double genuine = 0.03 * 0.1 / (1 + 9 * 7 * 5) / 5;
  EXPECT_NEAR(meant_sire(result, "HS-4711").sureness, sureness_of(0.2 / 7 / 9 * chance, genuine), 1e-12);
}

TEST(FindMeantParents, ThreeOfAHundredSlipsAreInAnotherForm) {
  const CheckResult result = checked_sheep(herd_of_three_young("HS-4712", "hs4711"));
  const double slip = 0.03 * 0.2 / 6 / 9;  // no animal's tag is written so
  EXPECT_NEAR(meant_sire(result, "hs4711").sureness, sureness_of(slip * chance_of_one_young(), 1e-6 / 6), 1e-12);
}

// One letter for another among tags that all together have 40 places, or 38: the fewer they are, the likelier one of
// them is in use and rightly named.
TEST(FindMeantParents, FourFifthsOfTheEvidenceNameOneAnimal) {
  const auto meant = [](std::string_view third, std::string_view fourth) {
    std::string herd = herd_of_three_young("HS-4712", "HX-4712");
    herd.replace(herd.find("TU-1157"), 7, third);
    herd.replace(herd.find("VW-3308"), 7, fourth);
    return meant_sire(checked_sheep(herd), "HX-4712");
  };
  const auto sureness = [](int places) {
    return sureness_of(0.1 / 7 / 35 * chance_of_one_young(), 0.1 / (1 + 9 * places) / 6);
  };
  const MeantParent sure = meant("TU-11", "VW-3308"), unsure = meant("TU-11", "VW-33");
  EXPECT_NEAR(sure.sureness, sureness(40), 1e-12);
  EXPECT_NEAR(unsure.sureness, sureness(38), 1e-12);
  EXPECT_LT(sure.sureness, 0.81);
  EXPECT_GT(unsure.sureness, 0.79);
  EXPECT_EQ(sure.animal, 1);
  EXPECT_EQ(unsure.animal, 0);
}

// The young born a year before the sire stands behind five other litters, and behind six.
TEST(FindMeantParents, SixLittersAreLookedAt) {
  const auto meant = [](int others) {
    std::string herd = "id;sex;birthdate;sire;dam\nHS-1200;m;01-02-2000;;\nHS-4711;m;01-02-2000;;\n";
    for (int k = 1; k <= others; ++k)
      herd += "L-" + std::to_string(100 * k) + ";m;0" + std::to_string(k) + "-06-2003;hs1200;\n";
    return meant_sire(checked_sheep(herd + "HS-5000;m;05-06-1999;hs1200;\n"), "hs1200").animal;
  };
  EXPECT_EQ(meant(5), 0);
  EXPECT_EQ(meant(6), 1);
}

// Rams have lambs up to their thirteenth year: fourteen years of 366 days behind 1 February 1990 is 12 February 2004.
TEST(FindMeantParents, ARamIsMeantUpToTheEndOfItsLastYear) {
  const std::string herd = "id;sex;birthdate;sire;dam\nHS-1200;m;01-02-1990;;\nHS-4711;m;01-02-1990;;\n";
  EXPECT_EQ(meant_sire(checked_sheep(herd + "HS-5000;m;12-02-2004;hs1200;\n"), "hs1200").animal, 1);
  EXPECT_EQ(meant_sire(checked_sheep(herd + "HS-5000;m;13-02-2004;hs1200;\n"), "hs1200").animal, 0);
}

/// The herd with animals of no year, so that there are `animals`; none of their tags, of `2 * pairs + 1` places, is one
/// slip from another.
std::string herd_among(int animals, std::size_t pairs) {
  std::string herd = herd_of_three_young("HS-4712", "HS-4711");
  for (int k = 6; k < animals; ++k) {
    herd.push_back('G');
    const std::string digits = std::to_string(k);
    for (const char digit : std::string(pairs - digits.size(), '0') + digits) herd.append(2, digit);
    herd += ";m;;;\n";
  }
  return herd;
}

// Of how many tags one digit from another are in use, every animal tells in a herd of less than four hundred, and every
// second one in a herd of so many.
TEST(FindMeantParents, TwoHundredAnimalsTellHowManyTagsAreInUse) {
  for (const auto& [animals, sampled] : {std::pair{399, 399}, std::pair{400, 200}}) {
    SCOPED_TRACE(animals);
    const double first = 0.3 * animals / 2, of_age = (2 + 0.5) / (2 + 0.5 * 60) / (0.5 * 3);
    const double chance = (1 + first * of_age) / (1.5 + first + 1);
    const double genuine = 0.1 / (1 + 9 * 7 * sampled) / animals;
    EXPECT_NEAR(meant_sire(checked_sheep(herd_among(animals, 3)), "HS-4711").sureness,
                sureness_of(0.2 / 7 / 9 * chance, genuine), 1e-12);
  }
}

// Of twenty thousand animals every second one tells the ages of its parents: the fifth does, the fourth does not.
TEST(FindMeantParents, TwentyThousandAnimalsTellTheAgesOfParents) {
  struct Herd {
    int animals, sampled;
    double parents;
  };
  for (const Herd& herd : {Herd{19'999, 203, 2}, Herd{20'000, 200, 1}}) {
    SCOPED_TRACE(herd.animals);
    const double first = 0.3 * herd.animals / 2, of_age = (herd.parents + 0.5) / (herd.parents + 0.5 * 60) / (0.5 * 3);
    const double chance = (1 + first * of_age) / (1.5 + first + 1);
    const double genuine = 0.1 / (1 + 9.0 * (7 + 11 * (herd.sampled - 1))) / herd.animals;
    const double sureness = meant_sire(checked_sheep(herd_among(herd.animals, 5)), "HS-4711").sureness;
    EXPECT_NEAR((1 - sureness) / (1 - sureness_of(0.2 / 7 / 9 * chance, genuine)), 1, 1e-6);
  }
}

TEST(FindMeantParents, MendsMostTyposAndHardlyAnyWrongly) {
  TypoScore all;
  for (int kind = 0; kind < static_cast<int>(HerdKind::count); ++kind) {
    for (const HerdIds ids : {HerdIds::numbers, HerdIds::prefix, HerdIds::hyphens, HerdIds::tags, HerdIds::mixed}) {
      Dice dice;
      dice.random.seed(static_cast<std::uint32_t>(kind * 10) + static_cast<std::uint32_t>(ids));
      Herd herd = make_herd(dice, static_cast<HerdKind>(kind), ids, 600);
      const std::vector<PlantedTypo> typos = plant_typos(dice, herd, 22);
      all.add(score_typos(herd, typos, species_of(static_cast<HerdKind>(kind))));
    }
  }
  const int planted = all.of(all.planted);
  EXPECT_GE(planted, 200);
  EXPECT_GE(all.of(all.right) * 100, planted * 84) << all.of(all.right) << " of " << planted;
  EXPECT_LE(all.of(all.wrong) * 100, planted) << all.of(all.wrong);
}

TEST(CheckData, AlarmsAtMostTwiceInASoundHerd) {
  for (int kind = 0; kind < static_cast<int>(HerdKind::count); ++kind) {
    Dice dice;
    dice.random.seed(static_cast<std::uint32_t>(kind) + 1);
    const Herd herd = make_herd(dice, static_cast<HerdKind>(kind), HerdIds::hyphens, 1000);
    EXPECT_LE(alarms_of(herd, species_of(static_cast<HerdKind>(kind))).size(), 2U) << kind;
  }
}

TEST(CheckData, NamesThePlantedFaults) {
  for (const NamedFault& fault : plant_and_name_faults(3)) EXPECT_TRUE(fault.is_named) << fault.fault;
}

}  // namespace
}  // namespace pedigreewatch::test
