#include "standalone/libvond_host/report_block.h"

#include <gtest/gtest.h>

namespace vond::standalone {
namespace {

using log::OutputLog;

void expect_piece(const ReportBlock::Piece& piece, OutputLog::Colors color,
                  const std::string& text) {
  EXPECT_EQ(piece.color, color);
  EXPECT_EQ(piece.text, text);
}

TEST(ReportBlock, KeepsTheOrderOfItsPieces) {
  ReportBlock block(0);
  block.add("Title\n");
  block.add_line(OutputLog::RED, "text");
  block.add_rule();
  ASSERT_EQ(block.pieces().size(), 4);
  expect_piece(block.pieces()[0], OutputLog::NONE, "Title\n");
  expect_piece(block.pieces()[1], OutputLog::RED, "text");
  expect_piece(block.pieces()[2], OutputLog::NONE, "\n");
  expect_piece(block.pieces()[3], OutputLog::NONE, std::string(80, '-') + "\n");
}

TEST(ReportBlock, WrapsLinesUnderTheirIndentAndNothingElse) {
  ReportBlock block(20);
  block.add("a title that is longer than that\n");
  block.add_line(OutputLog::NONE, "a line that is longer", "  ");
  EXPECT_EQ(block.pieces()[0].text, "a title that is longer than that\n");
  EXPECT_EQ(block.pieces()[1].text, "a line that is\n  longer");
}

}  // namespace
}  // namespace vond::standalone
