// An extension for any host: it uses the contract's help, and no facts.
#include "vond/contract.h"
#include "vond/extension/issue_order.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/one_line.h"
#include "vond/extension/statement.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace {

using namespace vond::extension;
using namespace vond::postprocessor;

class Outside : public PostprocessorExtension {
 public:
  explicit Outside(PostprocessorExtensionData& engine_data) : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    for_each_issue(
        data, [this](const Issue& issue, const auto& band, auto /*type*/, bool /*fails*/) {
          write(vond::vocabulary::band_name(band) + " " + issue->get_id() + ": " +
                one_line(issue->outputs[0]->message) + " " + folded_nodes(*issue, strings_) + "\n");
        });
    return 0;
  }

 private:
  StringInterface strings_;
};

}  // namespace

VOND_EXPORT_CONTRACT;

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Outside(data);
}
