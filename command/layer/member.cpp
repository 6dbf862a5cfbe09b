// Members: walking, reading and changing one.
#include <algorithm>
#include <cstring>

#include "api/olvotl.h"
#include "browse/members.h"
#include "command/layer/formatting.h"
#include "command/layer/outline.h"
#include "command/layer/text.h"

namespace command {
namespace {

// Follows one link; a refused one is an error of the program or of the store.
template <typename Function>
HMember follow(Function function, HOutline outline, HMember member) {
  const kepotl::GivenHandle found = kepotl::ask_handle(function, outline, member);
  check(found.status, "walk the outline");
  return found.handle;
}

// An engine may answer that all is well and hand out no record.
void read(kepotl::MemberRecord* record, HMember member) {
  const int status = record->read(member);
  if (!*record) fail(kepotl::status_without_record(status), "read a member");
}

// A text that a call hands out, empty when there is none.
template <typename Function, typename... Arguments>
std::string take_text(const char* what, Function function, Arguments... arguments) {
  kepotl::ApiBlock<char> text(kepotl::kNoInstance);
  check(text.take(function, arguments...), what);
  return text ? outside(text.get()) : std::string();
}

}  // namespace

Member Member::first_child() const {
  if (handle_ != 0) return {outline_, follow(OlvOtlGetChild, outline_, handle_)};
  const kepotl::GivenHandle found = kepotl::ask_handle(OlvOtlGetFirstMember, outline_);
  check(found.status, "walk the outline");
  return {outline_, found.handle};
}

Member Member::next() const {
  return {outline_, follow(OlvOtlGetNextSibling, outline_, handle_)};
}

Member Member::previous() const {
  return {outline_, follow(OlvOtlGetPrevSibling, outline_, handle_)};
}

Member Member::parent() const {
  return {outline_, follow(OlvOtlGetParent, outline_, handle_)};
}

Member Member::last_child() const {
  Member last;
  for (const Member child : children(*this)) last = child;
  return last;
}

Member Member::dimension() const {
  return {outline_, LocateDimensionForMember(outline_, handle_)};
}

MemberInfoRecord Member::record() const {
  kepotl::MemberRecord record(outline_);
  read(&record, handle_);
  return *record;
}

void Member::set_record(const MemberInfoRecord& record) const {
  check(OlvOtlSetMemberInfoEx(outline_, handle_, &record, kMemberOption), "change a member");
}

std::string Member::name() const {
  kepotl::MemberRecord record(outline_);
  read(&record, handle_);
  return outside(record->name);
}

bool Member::shared() const {
  kepotl::MemberRecord record(outline_);
  read(&record, handle_);
  return record->shareOption == kShareShared;
}

std::string Member::formula() const {
  return take_text("read a formula", OlvOtlGetMemberFormula, outline_, handle_);
}

std::string Member::extended_comment() const {
  return take_text("read a comment", OlvOtlGetMemberCommentEx, outline_, handle_);
}

std::string Member::alias(const char* table) const {
  return take_text("read an alias", OlvOtlGetMemberAlias, outline_, handle_, table);
}

std::vector<std::string> Member::udas() const {
  std::vector<std::string> udas;
  check(kepotl::give_udas(kepotl::kNoInstance, outline_, handle_,
                          [&](const char* uda) { udas.push_back(outside(uda)); }),
        "read user-defined attributes");
  return udas;
}

bool Member::has_udas_of(Member other) const {
  kepotl::ApiArray<char, uint16_t> mine(kepotl::kNoInstance);
  kepotl::ApiArray<char, uint16_t> theirs(kepotl::kNoInstance);
  constexpr char kWhat[] = "read user-defined attributes";
  check(mine.take(OlvOtlGetUserAttributes, outline_, handle_), kWhat);
  check(theirs.take(OlvOtlGetUserAttributes, other.outline_, other.handle_), kWhat);
  if (mine.size() != theirs.size()) return false;
  for (size_t i = 0; i < mine.size(); ++i) {
    const size_t at = i * kUdaStride;
    if (std::strncmp(mine.begin() + at, theirs.begin() + at, kUdaStride) != 0) return false;
  }
  return true;
}

std::vector<Member> Member::attributes() const {
  kepotl::ApiArray<HMember, uint16_t> found(kepotl::kNoInstance);
  check(found.take(OlvOtlGetAssociatedAttributes, outline_, handle_), "read attributes");
  std::vector<Member> attributes;
  for (uint16_t i = 0; i < found.size(); ++i) attributes.emplace_back(outline_, found.begin()[i]);
  return attributes;
}

void Member::set_formula(std::string_view text) const {
  check(text.empty() ? OlvOtlDeleteMemberFormula(outline_, handle_)
                     : OlvOtlSetMemberFormula(outline_, handle_, inside(text).c_str()),
        "change a formula");
}

void Member::set_extended_comment(std::string_view text) const {
  check(OlvOtlSetMemberCommentEx(outline_, handle_, inside(text).c_str()), "change a comment");
}

void Member::set_alias(const char* table, std::string_view alias) const {
  check(alias.empty() ? OlvOtlDeleteMemberAlias(outline_, handle_, table)
                      : OlvOtlSetMemberAlias(outline_, handle_, table, inside(alias).c_str()),
        "change an alias");
}

void Member::add_uda(std::string_view uda) const {
  check(OlvOtlSetUserAttribute(outline_, handle_, inside(uda).c_str()),
        fmt::format("add the UDA '{}'", uda));
}

void Member::remove_uda(std::string_view uda) const {
  check(OlvOtlDeleteUserAttribute(outline_, handle_, inside(uda).c_str()),
        fmt::format("remove the UDA '{}'", uda));
}

void Member::associate(Member attribute) const {
  check(parent() ? OlvOtlAssociateAttributeMember(outline_, handle_, attribute.handle())
                 : OlvOtlAssociateAttributeDimension(outline_, handle_, attribute.handle()),
        fmt::format("associate '{}' with '{}'", name(), attribute.name()));
}

void Member::disassociate(Member attribute) const {
  check(parent() ? OlvOtlDisassociateAttributeMember(outline_, handle_, attribute.handle())
                 : OlvOtlDisassociateAttributeDimension(outline_, handle_, attribute.handle()),
        fmt::format("take the attribute '{}' from '{}'", attribute.name(), name()));
}

void Member::rename(std::string_view new_name) const {
  check(OlvOtlRenameMemberEx(outline_, handle_, inside(new_name).c_str(), kMemberOption),
        fmt::format("rename to '{}'", new_name));
}

void Member::move(Member parent, Member previous) const {
  check(OlvOtlMoveMember(outline_, handle_, parent.handle(), previous.handle()), "move a member");
}

void Member::remove() const {
  check(OlvOtlDeleteMemberEx(outline_, handle_, kMemberOption), "delete a member");
}

void Member::sort_children(bool descending) const {
  check(OlvOtlSortChildren(outline_, handle_, descending ? kSortDescending : kSortAscending, 0, 0),
        "sort members");
}

void Subtree::Iterator::step(bool down) {
  if (down) {
    if (const Member child = at_.first_child()) {
      at_ = child;
      ++depth_;
      return;
    }
  }
  while (at_ && at_ != top_) {
    if (const Member sibling = at_.next()) {
      at_ = sibling;
      return;
    }
    at_ = at_.parent();
    // Above the root's dimensions there is nothing: the walk ends.
    if (depth_ > 0) --depth_;
  }
  at_ = Member();
}

}  // namespace command
