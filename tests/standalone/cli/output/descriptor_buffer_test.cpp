#include "standalone/cli/output/descriptor_buffer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <ostream>
#include <string>

#include "standalone/cli/output/owned_descriptor.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

using standalone::DescriptorBuffer;
using standalone::OwnedDescriptor;

constexpr std::size_t MORE_THAN_A_BLOCK = 300UL * 1024;

class DescriptorBufferTest : public ::testing::Test {
 protected:
  std::string written() const { return read_file(path); }

  TemporaryFolder folder;
  std::string path = folder.write("output", "");
  OwnedDescriptor descriptor{::open(path.c_str(), O_WRONLY | O_CLOEXEC)};
};

TEST_F(DescriptorBufferTest, InBlocksAFlushWritesNothingYet) {
  DescriptorBuffer buffer(descriptor.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
  std::ostream stream(&buffer);
  stream << "text" << std::flush;
  EXPECT_EQ(written(), "");
  EXPECT_EQ(buffer.drain(), 0);
  EXPECT_EQ(written(), "text");
}

TEST_F(DescriptorBufferTest, AtOnceAFlushWrites) {
  DescriptorBuffer buffer(descriptor.number(), DescriptorBuffer::Flushing::AT_ONCE);
  std::ostream stream(&buffer);
  stream << "text";
  EXPECT_EQ(written(), "");
  stream << std::flush;
  EXPECT_EQ(written(), "text");
}

TEST_F(DescriptorBufferTest, TextOfManyBlocksIsWrittenOnce) {
  std::string text;
  for (int number = 0; text.size() < 2 * MORE_THAN_A_BLOCK; ++number) {
    text += std::to_string(number) + " ";
  }
  DescriptorBuffer buffer(descriptor.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
  std::ostream stream(&buffer);
  for (const char character : text) {
    stream.put(character);
  }
  buffer.drain();
  EXPECT_EQ(written(), text);
}

TEST_F(DescriptorBufferTest, TheFirstErrorIsRemembered) {
  const OwnedDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
  DescriptorBuffer buffer(full.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
  std::ostream stream(&buffer);
  EXPECT_EQ(buffer.error(), 0);
  stream << std::string(MORE_THAN_A_BLOCK, 'x');
  EXPECT_EQ(buffer.error(), ENOSPC);
  stream << "more";
  EXPECT_EQ(buffer.drain(), ENOSPC);
}

TEST_F(DescriptorBufferTest, AllBuffersThatLiveAreDrainedTogether) {
  DescriptorBuffer first(descriptor.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
  std::ostream(&first) << "first ";
  {
    DescriptorBuffer gone(descriptor.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
    std::ostream(&gone) << "gone ";
  }
  DescriptorBuffer second(descriptor.number(), DescriptorBuffer::Flushing::IN_BLOCKS);
  std::ostream(&second) << "second";
  DescriptorBuffer::drain_all();
  EXPECT_EQ(written(), "first second");
}

TEST_F(DescriptorBufferTest, WhatComesAfterTheEndOfAllTextsIsDropped) {
  DescriptorBuffer buffer(descriptor.number(), DescriptorBuffer::Flushing::AT_ONCE);
  std::ostream stream(&buffer);
  stream << "text";
  DescriptorBuffer::end_all_texts();
  stream << "more" << std::string(MORE_THAN_A_BLOCK, 'x') << std::flush;
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(buffer.drain(), 0);
  EXPECT_EQ(written(), "text");
}

TEST(OwnedDescriptor, IsClosedWithTheObjectAndNotTwice) {
  int number = -1;
  {
    OwnedDescriptor descriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    number = descriptor.number();
    EXPECT_NE(::fcntl(number, F_GETFD), -1);
    EXPECT_EQ(descriptor.close(), 0);
    EXPECT_EQ(descriptor.close(), 0);
  }
  EXPECT_EQ(::fcntl(number, F_GETFD), -1);
  EXPECT_EQ(OwnedDescriptor(-1).close(), 0);
}

}  // namespace
}  // namespace vond::test
