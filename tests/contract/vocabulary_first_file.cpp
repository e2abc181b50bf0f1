#include "tests/contract/vocabulary_files.h"
#include "vond/vocabulary/month_names.h"

namespace vond::test {

using namespace vocabulary;

SeverityBandTable& bands_of_first_file() { return SEVERITY_BANDS; }

std::vector<std::pair<std::string, const void*>> memory_of_first_file() {
  return {{"default subcluster", DEFAULT_SUBCLUSTER.data()},
          {"encodings", &*ENCODINGS.begin()},
          {"column indices", &*COLUMN_INDICES.begin()},
          {"provider error code", PROVIDER_ERROR_CODE.data()},
          {"node-list methods", &*NODELIST_METHODS.begin()},
          {"scale types", &*SCALE_TYPES.begin()},
          {"log levels", &*LOG_LEVELS.begin()},
          {"severity bands", &*SEVERITY_BANDS.begin()},
          {"month names", MONTH_NAMES.data()}};
}

}  // namespace vond::test
