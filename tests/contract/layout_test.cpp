// Host and extensions are built apart: what both touch in memory must lie where the other one
// expects it. The figures are those of 64-bit systems with libstdc++ and its new strings.

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <vector>

#include "vond/analysis/analysis_output.h"
#include "vond/fwd.h"
#include "vond/log/output_log.h"
#include "vond/log/output_stream.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace {

using vond::Fwd;
using vond::FwdChildGroup;
using vond::FwdHierarchy;
using vond::FwdNode;
using vond::analysis::AnalysisOutput;
using vond::log::OutputLog;
using vond::log::OutputStream;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::PostprocessorExtensionData;

using Offsets = std::vector<std::size_t>;
using Stream = OutputLog::OutputLogStream;
using Data = PostprocessorExtensionData;

/// Returns where the fields of a `Record` are, in bytes. offsetof() promises nothing for these
/// types, an object shows it.
template <typename Record, typename... Fields>
Offsets offsets_of(const Record& record, Fields Record::*... fields) {
  const auto* const start = reinterpret_cast<const char*>(&record);
  return {static_cast<std::size_t>(reinterpret_cast<const char*>(&(record.*fields)) - start)...};
}

TEST(Layout, OfAnAnalysisOutput) {
  using R = AnalysisOutput;
  EXPECT_EQ(sizeof(R), 176U);
  EXPECT_EQ(offsets_of(R(), &R::identifier, &R::category, &R::message, &R::node_names, &R::remedy,
                       &R::row_ids),
            (Offsets{0, 32, 64, 96, 120, 152}));
}

TEST(Layout, OfAnIssue) {
  using R = CollapsedAnalysisOutput;
  EXPECT_EQ(sizeof(R), 120U);
  EXPECT_EQ(offsets_of(R(), &R::outputs, &R::fwd_names, &R::related_issues), (Offsets{0, 24, 72}));
}

TEST(Layout, OfADefinition) {
  EXPECT_EQ(sizeof(Fwd), 104U);
  EXPECT_EQ(
      offsets_of(Fwd(), &Fwd::passed, &Fwd::issue_counts, &Fwd::name, &Fwd::node, &Fwd::skipped),
      (Offsets{0, 8, 56, 88, 96}));
}

TEST(Layout, OfTheHierarchy) {
  EXPECT_EQ(sizeof(FwdNode), 40U);
  EXPECT_EQ(offsets_of(FwdNode(), &FwdNode::fwd, &FwdNode::child_groups), (Offsets{0, 16}));
  EXPECT_EQ(sizeof(FwdChildGroup), 24U);
  EXPECT_EQ(offsets_of(FwdChildGroup(), &FwdChildGroup::children), Offsets{0});
  EXPECT_EQ(sizeof(FwdHierarchy), 24U);
  EXPECT_EQ(offsets_of(FwdHierarchy(), &FwdHierarchy::roots), Offsets{0});
}

TEST(Layout, OfTheRecord) {
  EXPECT_EQ(sizeof(Data), 528U);
  EXPECT_EQ(
      offsets_of(Data(), &Data::host_string_list, &Data::host_word, &Data::host_text_1,
                 &Data::host_text_2, &Data::host_text_3, &Data::host_text_4, &Data::host_flag_1,
                 &Data::host_flag_2, &Data::host_flag_3, &Data::fail_threshold, &Data::host_count,
                 &Data::line_width, &Data::counts_by_mask, &Data::host_name_set,
                 &Data::host_shared_1, &Data::host_shared_2, &Data::host_shared_3,
                 &Data::host_shared_4, &Data::fwd_root, &Data::host_shared_5, &Data::host_shared_6,
                 &Data::issues_by_mask, &Data::log_level, &Data::host_shared_7,
                 &Data::host_shared_8, &Data::host_shared_9, &Data::host_option_map),
      (Offsets{0,   24,  32,  64,  96,  128, 160, 161, 162, 164, 168, 172, 176, 224,
               272, 288, 304, 320, 336, 352, 368, 384, 400, 432, 448, 464, 480}));
}

TEST(Layout, OfTheOutputLog) {
  EXPECT_EQ(sizeof(OutputStream), 16U);
  EXPECT_EQ(offsets_of(OutputStream(), &OutputStream::stream, &OutputStream::colored),
            (Offsets{0, 8}));
  EXPECT_EQ(sizeof(Stream), 112U);
  EXPECT_EQ(offsets_of(Stream(), &Stream::color_codes, &Stream::reset_code, &Stream::streams,
                       &Stream::files, &Stream::current_color),
            (Offsets{0, 24, 56, 80, 104}));
  EXPECT_EQ(sizeof(OutputLog), sizeof(std::stringstream));
  EXPECT_EQ(sizeof(OutputLog::Colors), sizeof(int));
  EXPECT_EQ(sizeof(OutputLog::singleton_obj), sizeof(void*));
}

}  // namespace
