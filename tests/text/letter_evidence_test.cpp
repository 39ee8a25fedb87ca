#include "text/letter_evidence.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "text/known_words.h"

namespace pedigreewatch::test {
namespace {

constexpr std::array<const char*, byte_encoding_count> names = {"WINDOWS-1252", "CP1250", "ISO-8859-15",
                                                                "MACINTOSH",    "CP850",  "CP437"};

/// A text of UTF-8 as the system writes it in another encoding; empty where that lacks a letter.
std::string encoded(std::string utf_8, ByteEncoding encoding) {
  iconv_t converter = iconv_open(names[static_cast<std::size_t>(encoding)], "UTF-8");
  std::string bytes(utf_8.size() + 1, '\0');
  char *from = utf_8.data(), *to = bytes.data();
  std::size_t left = utf_8.size(), room = bytes.size();
  const bool is_written = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  bytes.resize(bytes.size() - room);
  return is_written ? bytes : "";
}

struct Names {
  const char* language;
  std::vector<std::string> list;
};

const std::vector<Names>& all_names() {
  static const std::vector<Names> table = {
      {"Dutch",
       {"Zo\u00EB", "Ren\u00E9", "Co\u00EBn", "Hi\u00EBr", "Chlo\u00EB", "Tr\u00FCs", "Dani\u00EBl", "Ru\u00EFne"}},
      {"German",
       {"Br\u00F6sel", "J\u00E4ger", "M\u00FCller", "K\u00E4the", "Wei\u00DF", "B\u00E4r", "Gr\u00FCn",
        "\u00DCbermut"}},
      {"French",
       {"Ch\u00E9rie", "No\u00EBl", "Fr\u00E9gate", "H\u00E9l\u00E8ne", "Gar\u00E7on", "Tr\u00E8fle", "Ma\u00EFs",
        "L\u00E9on"}},
      {"Spanish",
       {"Le\u00F3n", "Ni\u00F1o", "Mar\u00EDa", "Jos\u00E9", "Ca\u00F1a", "Raz\u00F3n", "\u00C1guila", "Mu\u00F1eca"}},
      {"Italian",
       {"Nicol\u00F2", "Citt\u00E0", "Cos\u00EC", "Virt\u00F9", "Perch\u00E9", "Bont\u00E0", "Gi\u00F2", "Caff\u00E8"}},
      {"Polish",
       {"Wac\u0142aw", "\u017Baba", "Krak\u00F3w", "\u0141ukasz", "\u015Awit", "Pi\u0119kna", "G\u0105ska",
        "Ma\u0142y"}},
      {"Czech",
       {"Je\u0161t\u011Brka", "Kr\u00E1l", "\u0160\u00E1rka", "R\u016F\u017Eena", "V\u00EDtek", "D\u011Bda",
        "P\u0159\u00EDb\u011Bh", "Sle\u010Dna", "\u0158eka", "\u017Dofie", "K\u016F\u0148", "\u010Cert"}},
      {"Hungarian",
       {"Gy\u00F6rgy", "L\u00E1szl\u00F3", "Cs\u00E1rd\u00E1s", "Erd\u0151", "T\u0171z", "V\u00F6r\u00F6s",
        "Kir\u00E1lyn\u0151", "\u0150sz", "H\u0171s\u00E9g", "Sz\u00E9ps\u00E9g"}},
  };
  return table;
}

/// An export with these names, in that encoding; empty where it lacks a letter.
std::string export_of(const std::vector<std::string>& list, ByteEncoding encoding) {
  std::string text = "id;name;sire\n";
  for (std::size_t i = 0; i < list.size(); ++i) text += std::to_string(i) + ";" + list[i] + ";Rex\n";
  return encoded(text, encoding);
}

bool is_read_as(const std::string& bytes, ByteEncoding reading, ByteEncoding truth) {
  return decoded_word(bytes, reading) == decoded_word(bytes, truth);
}

TEST(RecogniseLetters, NamesOfALanguageTellTheirEncoding) {
  for (const Names& language : all_names()) {
    for (std::size_t i = 0; i < byte_encoding_count; ++i) {
      const auto truth = static_cast<ByteEncoding>(i);
      const std::string bytes = export_of(language.list, truth);
      if (bytes.empty()) continue;
      const LetterEvidence evidence = recognise_letters(bytes);
      EXPECT_EQ(evidence.readings.size(), 1U) << language.language << " in " << names[i];
      EXPECT_TRUE(is_read_as(bytes, evidence.readings.front().encoding, truth))
          << language.language << " in " << names[i];
    }
  }
}

TEST(RecogniseLetters, FewNamesAreDecidedRightlyOrTheRightReadingIsAmongThose) {
  int decided = 0, open = 0;
  for (const Names& language : all_names()) {
    for (std::size_t i = 0; i < byte_encoding_count; ++i) {
      for (std::size_t first = 0; first + 1 < language.list.size(); ++first) {
        const auto truth = static_cast<ByteEncoding>(i);
        const std::string bytes = export_of({language.list[first], language.list[first + 1]}, truth);
        if (bytes.empty()) continue;
        const auto readings = recognise_letters(bytes).readings;
        (readings.size() == 1 ? decided : open) += 1;
        EXPECT_TRUE(std::any_of(readings.begin(), readings.end(),
                                [&](const EncodingReading& one) { return is_read_as(bytes, one.encoding, truth); }))
            << language.list[first] << " " << language.list[first + 1] << " in " << names[i];
      }
    }
  }
  EXPECT_GT(decided, open);
  EXPECT_GT(open, 0);
}

TEST(RecogniseLetters, TheMarginDecides) {
  // One ñ of Spain may be a ń of Poland; two of them with an ó may not.
  const LetterEvidence open = recognise_letters("Ri\xF1o");
  ASSERT_EQ(open.readings.size(), 2U);
  EXPECT_LT(open.readings[0].score - open.readings[1].score, least_encoding_margin);
  EXPECT_EQ(open.readings[0].examples, std::vector<std::string>{"Ri\u00F1o"});
  EXPECT_EQ(open.readings[1].examples, std::vector<std::string>{"Ri\u0144o"});
  EXPECT_EQ(open.readings[1].encoding, ByteEncoding::windows_1250);
  EXPECT_EQ(recognise_letters("Ri\xF1o;Le\xF3n;Se\xF1ora").readings.size(), 1U);
}

TEST(RecogniseLetters, ALoneWordNeedsALargerMargin) {
  const auto readings_of = [](const std::string& words, ByteEncoding encoding) {
    return recognise_letters("id;name\n1;" + encoded(words, encoding)).readings.size();
  };
  EXPECT_GT(readings_of("M\u00E4dl", ByteEncoding::windows_1252), 1U);           // 5.27 ahead of the next reading
  EXPECT_EQ(readings_of("H\u00D6TZL", ByteEncoding::macroman), 1U);              // 5.52
  EXPECT_EQ(readings_of("M\u00E4dl;P\u00E4r", ByteEncoding::windows_1252), 1U);  // two words alike
  // Guessed by how usual encodings are, and wrongly.
  EXPECT_GT(readings_of("\u00DArsula", ByteEncoding::cp850), 1U);
}

TEST(RecogniseLetters, ALoneWordThatIsKnownDecides) {
  for (const char* const word : {"For\u00EAt", "Zo\u00EB", "Ren\u00E9", "J\u00E4ger", "Le\u00F3n", "Kr\u00E1l"}) {
    for (std::size_t i = 0; i < byte_encoding_count; ++i) {
      const auto truth = static_cast<ByteEncoding>(i);
      const std::string bytes = encoded(word, truth);
      if (bytes.empty()) continue;
      const auto readings = recognise_letters("id;name\n1;Rex\n2;" + bytes).readings;
      EXPECT_EQ(readings.size(), 1U) << word << " in " << names[i];
      EXPECT_TRUE(is_read_as(bytes, readings.front().encoding, truth)) << word << " in " << names[i];
    }
  }
}

TEST(RecogniseLetters, ALoneWordThatNobodyKnowsIsAskedAbout) {
  // Zoske with an acute accent is Polish; the byte is a sign of print in Windows-1252.
  EXPECT_GT(recognise_letters("Zo\x9Cka").readings.size(), 1U);
}

TEST(RecogniseLetters, FewWordsWithAccentsSpeakAgainstWindows1250) {
  const auto score_beside = [](int count, const std::string& word) {
    std::string bytes = "Wytsk\xEA";
    for (int k = 0; k < count; ++k)
      bytes += ";" + word + std::string(1, static_cast<char>('a' + k % 26)) +
               std::string(static_cast<std::size_t>(k / 26), 'x');
    const auto readings = recognise_letters(bytes).readings;
    return readings.size() == 2 ? readings.back().score : 0.0;
  };
  const double alone = score_beside(0, "");
  EXPECT_NEAR(score_beside(9, "re"), alone, 1e-9);
  EXPECT_NEAR(score_beside(15, "re"), alone + std::log(1 / 16.0 / .1), 1e-9);
  EXPECT_NEAR(score_beside(99, "re"), alone + std::log(.2), 1e-9);
  EXPECT_NEAR(score_beside(15, "r"), alone, 1e-9) << "codes of two letters are no words";
}

// How likely a text of one word is in Windows-1252, which seven in ten texts have: the word in the language in which it
// is likeliest, for which a quarter and the word itself count among twelve quarters and a word.
TEST(RecogniseLetters, AWordIsAsLikelyAsItsLettersAndTheirNeighbours) {
  constexpr double e_of_dutch = .40, foreign = 2e-3;
  const std::vector<std::pair<std::string, double>> words = {
      {"Bt\xEBt", e_of_dutch},
      {"D\xEBra\xDF"
       "a",
       e_of_dutch * foreign},  // a sharp s in a Dutch name
      {"Rt\xFF"
       "ra",
       1e-4},                        // a y that nobody has
      {"O\x92Rt", .2},               // an apostrophe
      {"\x93Rta", .02},              // a quotation mark
      {"Ra\xD7ra", 1e-5},            // a sign in a word
      {"\xB0", .05},                 // a sign alone
      {"\xEB", e_of_dutch * .02},    // a letter alone
      {"T\xEBT", e_of_dutch * .01},  // a small letter before a capital
      {"Rrt\xE7t", .16 * .2},        // a Portuguese consonant between others
      {"Ra\xEB"
       "at",
       e_of_dutch * .5},                              // a vowel between vowels
      {"Rt\xEB\xEBt", e_of_dutch * e_of_dutch * .1},  // two with accents side by side
      {"Rq\xEBt", e_of_dutch * .2},                   // beside a letter that Dutch hardly has
      {"Rt\xF2t", .15 * .1}};                         // an Italian accent before the end
  for (const auto& [word, likelihood] : words) {
    const auto readings = recognise_letters("1;" + word).readings;
    const auto found = std::ranges::find(readings, ByteEncoding::windows_1252, &EncodingReading::encoding);
    ASSERT_NE(found, readings.end()) << decoded_word(word, ByteEncoding::windows_1252);
    EXPECT_NEAR(found->score, std::log(.70 * likelihood * 1.25 / (1 + 12 * .25)), 1e-9)
        << decoded_word(word, ByteEncoding::windows_1252);
  }
}

TEST(RecogniseLetters, ThreeThousandWordsAreEnough) {
  const auto counted = [](int words) {
    std::string bytes;
    for (int k = 0; k < words; ++k) {
      bytes += ";B\xEB";
      for (int rest = k, digit = 0; digit < 3; rest /= 20, ++digit) bytes += "bcdfghjklmnpqrstvwxz"[rest % 20];
    }
    return recognise_letters(bytes).word_count;
  };
  EXPECT_EQ(counted(2999), 2999U);
  EXPECT_EQ(counted(3001), 3000U);
}

TEST(KnownAccentedWord, WholeOrByItsEnding) {
  EXPECT_TRUE(is_known_accented_word("for\u00EAt"));
  EXPECT_FALSE(is_known_accented_word("for\u00EA"));
  EXPECT_TRUE(is_known_accented_word("emoci\u00F3n"));
  EXPECT_FALSE(is_known_accented_word("ci\u00F3n"));
  EXPECT_TRUE(is_known_accented_word("exci\u00F3n"));
  EXPECT_FALSE(is_known_accented_word("xci\u00F3n"));
  EXPECT_FALSE(is_known_accented_word(""));
}

TEST(RecogniseLetters, ExamplesAreTwoWordsThatDiffer) {
  const LetterEvidence evidence = recognise_letters("Bo\x91;Fr\x9A;H\x9Asten;Rex");
  ASSERT_GT(evidence.readings.size(), 1U);
  EXPECT_EQ(evidence.word_count, 3U);
  for (const EncodingReading& reading : evidence.readings) EXPECT_EQ(reading.examples.size(), 2U);
}

TEST(RecogniseLetters, SignsOfPrintAreThoseOfWindows1252) {
  for (const char* const bytes : {"the dog\x92s bone;L\x92\xC9toile", "a \x96 b", "\x80 50", "\x93Rex\x94 of Hill",
                                  "De\xA0"
                                  "Boer"}) {
    const LetterEvidence evidence = recognise_letters(bytes);
    EXPECT_EQ(evidence.readings.front().encoding, ByteEncoding::windows_1252) << bytes;
  }
}

TEST(RecogniseLetters, EncodingsThatReadAlikeCountAsOne) {
  // ë and é are the same bytes in Windows-1250 and ISO-8859-15.
  const LetterEvidence evidence = recognise_letters("Zo\xEB;Ren\xE9");
  ASSERT_EQ(evidence.readings.size(), 1U);
  EXPECT_EQ(evidence.readings.front().encoding, ByteEncoding::windows_1252);
}

TEST(RecogniseLetters, PlainTextIsWindows1252) {
  const LetterEvidence evidence = recognise_letters("id;name\n1;Rex\n");
  ASSERT_EQ(evidence.readings.size(), 1U);
  EXPECT_EQ(evidence.readings.front().encoding, ByteEncoding::windows_1252);
  EXPECT_EQ(evidence.word_count, 0U);
}

TEST(RecogniseLetters, LongTextsOfBytesBeyondAsciiEnd) {
  const LetterEvidence evidence = recognise_letters(std::string(300'000, '\xE9'));
  EXPECT_FALSE(evidence.readings.empty());
}

}  // namespace
}  // namespace pedigreewatch::test
