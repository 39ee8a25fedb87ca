// Where the programs under test and the data of the tests are. One file knows it, so that all others compile alike
// wherever the tree stands.
#pragma once

#include <string>

namespace pedigreewatch::test {

std::string program_path();         ///< of `pedigreewatch`
std::string tools_path();           ///< of `pedigreewatch-tools`
std::string program_version();      ///< that both programs must say
std::string golden_folder();        ///< whole runs of `pedigreewatch`
std::string golden_tools_folder();  ///< whole runs of `pedigreewatch-tools`
std::string source_folder();        ///< the root of the tree: examples, documents, sources

}  // namespace pedigreewatch::test
