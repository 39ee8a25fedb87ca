// Every kind of finding that an export can have says what to do about it, in both languages.
#include "checks/mending_advice.h"

#include <gtest/gtest.h>

#include <set>

#include "checks/finding_kinds.h"

namespace pedigreewatch::test {
namespace {

/// Kinds that only a steer file or a data file made by hand can have.
const std::set<FindingCode> of_files = {FindingCode::utf_16,           FindingCode::binary_file,
                                        FindingCode::empty_file,       FindingCode::report_name,
                                        FindingCode::delimiter,        FindingCode::header_missing,
                                        FindingCode::header_quotes,    FindingCode::header_required,
                                        FindingCode::column_missing,   FindingCode::line_ends,
                                        FindingCode::two_encodings,    FindingCode::quotes,
                                        FindingCode::header_word,      FindingCode::header_unread,
                                        FindingCode::header_as_animal, FindingCode::last_column,
                                        FindingCode::column_twice,     FindingCode::last_line,
                                        FindingCode::line_cut,         FindingCode::date_layout,
                                        FindingCode::male_letter,      FindingCode::subpopulation_list,
                                        FindingCode::colour_list,      FindingCode::heading_unused,
                                        FindingCode::utf_8_letters,    FindingCode::steer_word,
                                        FindingCode::steer_rest,       FindingCode::date_layout_required};

TEST(MendingAdvice, IsThereForEveryKindThatAnExportCanHave) {
  for (std::size_t k = 0; k < finding_code_count; ++k) {
    const auto code = static_cast<FindingCode>(k);
    const Wording advice = mending_advice(code);
    EXPECT_EQ(advice.english.empty(), of_files.count(code) == 1) << kind_of(code).name;
    EXPECT_EQ(advice.dutch.empty(), advice.english.empty()) << kind_of(code).name;
    EXPECT_EQ(advice.english.ends_with('.'), !advice.english.empty());
    EXPECT_EQ(advice.dutch.ends_with('.'), !advice.dutch.empty());
  }
}

}  // namespace
}  // namespace pedigreewatch::test
