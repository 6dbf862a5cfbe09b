// Outlines in files: everything comes back as it was written, and a file that is not as it was
// written is refused.
#include <fcntl.h>
#include <sys/file.h>

#include "standin/descriptor.h"
#include "standin/folder_store.h"
#include "tests/long_run.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

constexpr char kLatin1[] = "Zo\xEB \xFF";  // no valid UTF-8
const std::string kDamaged = std::to_string(standin::kDamagedOutline);
const std::string kNewer = std::to_string(standin::kNewerOutline);

class Persist : public OutlineTest {
 protected:
  void build_rich_outline();
  void fill_record(HMember member);
  void set_specifications();
};

// Every stored field of a record gets a value of its own, reserved bytes included.
void Persist::fill_record(HMember member) {
  MemberInfoRecord record = info(member);
  record.consolidation = 3;
  record.twoPass = 1;
  record.expense = 1;
  record.conversionType = -2;
  std::strcpy(record.currencyMember, kLatin1);
  record.timeBalance = 2;
  record.timeBalanceSkip = 3;
  record.shareOption = 4;
  record.storageType = 32767;
  record.storageCategory = -32768;
  std::strcpy(record.comment, "a comment\nof two lines");
  record.attributeType = 7;
  record.reserved530[1] = 0x80;
  for (size_t i = 0; i < sizeof record.reserved534; ++i) {
    record.reserved534[i] = static_cast<uint8_t>(i * 27 + 1);
    record.reserved546[i] = static_cast<uint8_t>(255 - i);
  }
  record.hybridFlag = 1;
  record.hybridAnalysisEnabled = 1;
  ASSERT_EQ(set_info(member, record), 0);
}

void Persist::set_specifications() {
  AttributeSpecRecord* spec = nullptr;
  ASSERT_EQ(OlvOtlGetAttributeSpecifications(h_, &spec), 0);
  spec->longNameConstructor = -3;
  spec->longNameDelimiter = -1;
  spec->bucketingType = 2;
  spec->reserved10[1] = 9;
  spec->sumName = kLatin1;
  spec->countName = nullptr;
  EXPECT_EQ(OlvOtlSetAttributeSpecifications(h_, spec), 0);
  EXPECT_EQ(OlvFree(0, spec), 0);
  OutlineInfoRecord settings{1, 0x11, -7, 3, 0x55, 0};
  EXPECT_EQ(OlvOtlSetOutlineInfoEx(h_, &settings), 0);
}

void Persist::build_rich_outline() {
  set_specifications();
  const HMember year = dimension("Year", kCategoryTime);
  const HMember product = dimension("Product");
  const HMember size = dimension("Size", kCategoryAttribute);
  const HMember color = dimension("Color", kCategoryAttribute);
  const HMember half = child(year, "Half 1");
  child(half, "Quarter 1");
  child(half, "quarter 1");  // the outline tells case
  const HMember first = child(product, "100");
  const HMember second = child(product, "200");
  const HMember sub = child(first, kLatin1);
  fill_record(sub);
  for (int i = 0; i < 300; ++i) child(second, "200-" + std::to_string(i));

  // Three holders of one name whose order is neither that of their places nor of their making.
  const HMember early = child(first, "Early");
  const HMember late = child(second, "Repeated");
  const HMember middle = child(second, "Middle");
  ASSERT_EQ(rename(middle, "Repeated"), 0);
  ASSERT_EQ(rename(early, "Repeated"), 0);
  ASSERT_EQ(find("Repeated"), late);

  ASSERT_EQ(OlvOtlSetMemberFormula(h_, sub, std::string(20000, 'x').c_str()), 0);
  ASSERT_EQ(OlvOtlSetMemberFormula(h_, year, kLatin1), 0);
  ASSERT_EQ(OlvOtlSetMemberCommentEx(h_, second, "extended \xE2\x82\xAC"), 0);
  for (const char* uda : {"zulu", "alpha", "mike"}) {
    ASSERT_EQ(OlvOtlSetUserAttribute(h_, sub, uda), 0);
  }
  const HMember small = child(size, "Small");
  const HMember red = child(color, "Red");
  ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, size), 0);
  ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, color), 0);
  ASSERT_EQ(OlvOtlAssociateAttributeMember(h_, sub, red), 0);
  ASSERT_EQ(OlvOtlAssociateAttributeMember(h_, sub, small), 0);
  ASSERT_EQ(OlvOtlAssociateAttributeMember(h_, second, red), 0);

  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "Long names"), 0);
  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "a"), 0);
  ASSERT_EQ(OlvOtlRenameAliasTable(h_, kLatin1, "a"), 0);
  for (const HMember member : children(second)) {
    ASSERT_EQ(OlvOtlSetMemberAlias(h_, member, "Long names", ("Alias " + name(member)).c_str()), 0);
  }
  ASSERT_EQ(OlvOtlSetMemberAlias(h_, sub, nullptr, kLatin1), 0);
  ASSERT_EQ(OlvOtlSetGenName(h_, "Product", 2, "Families"), 0);
  ASSERT_EQ(OlvOtlSetGenName(h_, "Year", 3, "Quarters"), 0);
  ASSERT_EQ(OlvOtlSetGenName(h_, "Color", 2, "Colors"), 0);
  ASSERT_EQ(OlvOtlSetLevelName(h_, "Product", 0, "Items"), 0);
  ASSERT_EQ(OlvOtlEnableDTSMember(h_, "Y-T-D", 1, 1), 0);
  ASSERT_EQ(OlvOtlEnableDTSMember(h_, "H-T-D", 2, 1), 0);
  ASSERT_EQ(OlvOtlSetDTSMemberAlias(h_, "H-T-D", "Long names", "so far"), 0);
}

TEST_F(Persist, EverythingComesBackAsItWas) {
  ASSERT_EQ(write(), 0);
  EXPECT_EQ(stored(), dump(h_));
  build_rich_outline();
  ASSERT_EQ(write(), 0);
  EXPECT_TRUE(stored() == dump(h_));  // too long to print
  // Handles and numbers that have been given up leave no trace.
  for (const char* gone : {"100", "Half 1", "Color"}) EXPECT_EQ(remove(find(gone)), 0);
  ASSERT_EQ(write(), 0);
  EXPECT_TRUE(stored() == dump(h_));
}

// The file was written by the first engine from the same outline.
TEST_F(Persist, AFileKeptFromTheFirstVersionOpens) {
  build_rich_outline();
  const std::string rich = dump(h_);
  ASSERT_EQ(write(), 0);
  write_file(file(), read_file(STANDIN_KEPT_FILES "/outline_1"));
  EXPECT_TRUE(stored() == rich);
}

TEST_F(Persist, DamageIsRefused) {
  build_rich_outline();
  const std::string rich = dump(h_);
  ASSERT_EQ(write(), 0);
  const std::string content = read_file(file());
  double cells = 0;
  ASSERT_EQ(OlvPartitionGetAreaCellCount(context_, "", &cells), 0);
  const size_t step = long_run_number("KEPOTL_BYTE_STEP", 251);

  // A file that opens has to be the whole outline: the byte that was hit lay in unused space.
  const auto is_refused = [&](const std::string& damaged, size_t where) {
    std::filesystem::remove(file());  // some file systems sync what is overwritten
    write_file(file(), damaged);
    const std::string text = stored();
    const bool refused = text == kDamaged || text == kNewer;
    EXPECT_TRUE(refused || text == rich) << "byte " << where;
    double counted = 0;
    const int counting = OlvPartitionGetAreaCellCount(context_, "", &counted);
    EXPECT_TRUE(refused ? std::to_string(counting) == text : counting == 0 && counted == cells)
        << "byte " << where << ": status " << counting << ", " << counted << " cells";
    return refused;
  };
  size_t tried = 0;
  size_t refused = 0;
  for (size_t at = 0; at < content.size(); at += at < 128 ? 1 : step) {
    std::string damaged = content;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << (at % 8)));
    ++tried;
    refused += is_refused(damaged, at);
  }
  EXPECT_GT(refused, tried / 4);
  for (size_t length = 0; length < content.size(); length += 4999) {
    EXPECT_TRUE(is_refused(content.substr(0, length), length));
  }
  EXPECT_FALSE(is_refused(content, content.size()));
}

TEST_F(Persist, AFileOfALaterVersionIsNotCalledDamaged) {
  build_rich_outline();
  ASSERT_EQ(write(), 0);
  constexpr size_t kLowByteOfUserVersion = 63;
  std::string content = read_file(file());
  ++content[kLowByteOfUserVersion];
  write_file(file(), content);
  EXPECT_EQ(stored(), kNewer);
}

TEST_F(Persist, FilesOfOthersAreRefused) {
  write_file(file(), std::string(100000, 'x'));
  EXPECT_EQ(stored(), kDamaged);
  // A sound database, but another program's: that of the store itself.
  session_->end();
  std::filesystem::copy_file(store_.folder() / standin::kControlFile, file(),
                             std::filesystem::copy_options::overwrite_existing);
  session_ = std::make_unique<Session>(store_.address());
  context_ = session_->login_with_database();
  EXPECT_EQ(stored(), kDamaged);
}

// A writer holds a lock on its temporary file as long as it lives, whatever its number means here.
TEST_F(Persist, LeftoversOfDeadWritersGo) {
  const std::string base = file().string() + ".";
  const std::string random(31, '0');
  const std::string left = base + "4026531836-1-77-" + random + "1.tmp";
  const std::string living = base + "4026531836-1-77-" + random + "2.tmp";
  const std::string other = base + "mine.tmp";
  for (const std::string& name : {left, living, other}) write_file(name, "half an outline");
  const standin::Descriptor writer(open(living.c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(flock(writer.get(), LOCK_EX | LOCK_NB), 0);
  ASSERT_EQ(write(), 0);
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_TRUE(std::filesystem::exists(living));
  EXPECT_TRUE(std::filesystem::exists(other));
}

}  // namespace
