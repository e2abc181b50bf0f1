#include "tests/contract/vocabulary_files.h"

namespace vond::test {

vocabulary::SeverityBandTable& bands_of_second_file() { return vocabulary::SEVERITY_BANDS; }

}  // namespace vond::test
