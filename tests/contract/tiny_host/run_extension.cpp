// run_extension LIBRARY: has the extension report on a record with one issue.
#include <dlfcn.h>

#include <iostream>
#include <memory>

#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"

using namespace vond;
using namespace vond::postprocessor;

namespace {

PostprocessorExtensionData make_record() {
  auto issue = std::make_shared<CollapsedAnalysisOutput>();
  issue->outputs = {std::make_shared<analysis::AnalysisOutput>()};
  *issue->outputs[0] = {"fan-slow", "cooling", "It is slow.", {"cn1"}, "Replace it.", {7}};
  issue->fwd_names = {"cooling"};

  auto root = std::make_shared<FwdNode>();
  root->fwd = std::make_shared<Fwd>();
  root->fwd->name = "cooling";
  root->fwd->node = root.get();
  root->fwd->issue_counts = {{FAIL_BIT | 8 | ALL_OBSERVATIONS, 1}};

  PostprocessorExtensionData record;
  record.fail_threshold = 75;
  record.counts_by_mask = {{0, 0}, {3, 0}, {16, 0}, {19, 1}};
  record.fwd_root = std::make_shared<FwdHierarchy>();
  record.fwd_root->roots = {root};
  record.issues_by_mask = std::make_shared<IssuesByMask>();
  (*record.issues_by_mask)[FAIL_BIT | 8 | OBSERVATIONS] = {issue};
  record.log_level = "info";
  return record;
}

}  // namespace

int main(int /*argc*/, char** argv) {
  log::OutputLog::singleton_obj = std::make_unique<log::OutputLog::OutputLogStream>();
  log::OutputLog::singleton_obj->streams = {{&std::cout, false}};

  // Not closed: the program ends with it.
  void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    std::cerr << dlerror() << "\n";
    return 1;
  }
  using Factory = PostprocessorExtension*(PostprocessorExtensionData&);
  const auto create = reinterpret_cast<Factory*>(dlsym(library, "create"));
  PostprocessorExtensionData record = make_record();
  return std::unique_ptr<PostprocessorExtension>(create(record))->run();
}
