// The name index: hashing with folded case, chains of heads and rings of equal names.
#include "standin/outline/model/name_index.h"

#include <algorithm>

namespace standin {

void NameIndex::reserve(uint32_t count) {
  if (count > nodes_.size()) nodes_.resize(count);
  if (count <= buckets_.size()) return;
  size_t size = std::max<size_t>(buckets_.size(), 16);
  while (size < count) size *= 2;
  std::vector<MemberId> old(size, kNoMember);
  old.swap(buckets_);
  for (MemberId head : old) {
    while (head != kNoMember) {
      const MemberId next = nodes_[head].next_in_bucket;
      MemberId& first = bucket(nodes_[head].hash);
      nodes_[head].next_in_bucket = first;
      first = head;
      head = next;
    }
  }
}

MemberId NameIndex::find(std::string_view name, uint32_t hash) const {
  if (buckets_.empty()) return kNoMember;
  MemberId head = buckets_[hash & (buckets_.size() - 1)];
  while (head != kNoMember && !(nodes_[head].hash == hash &&
                                equal_text(members_.at(head).name, name, case_sensitive_))) {
    head = nodes_[head].next_in_bucket;
  }
  return head;
}

MemberId* NameIndex::slot_of_head(MemberId head) {
  MemberId* slot = &bucket(nodes_[head].hash);
  while (*slot != head) slot = &nodes_[*slot].next_in_bucket;
  return slot;
}

void NameIndex::insert(MemberId id) {
  Node& node = nodes_[id];
  node.hash = hash(members_.at(id).name);
  const MemberId head = find(members_.at(id).name, node.hash);
  if (head == kNoMember) {
    MemberId& first = bucket(node.hash);
    node.next_in_bucket = first;
    node.ring_next = node.ring_previous = id;
    first = id;
    return;
  }
  const MemberId tail = nodes_[head].ring_previous;
  node.next_in_bucket = kNoMember;
  node.ring_next = head;
  node.ring_previous = tail;
  nodes_[tail].ring_next = id;
  nodes_[head].ring_previous = id;
}

void NameIndex::erase(MemberId id) {
  const Node& node = nodes_[id];
  if (find(members_.at(id).name, node.hash) == id) {
    MemberId* slot = slot_of_head(id);
    if (node.ring_next == id) {
      *slot = node.next_in_bucket;
    } else {
      nodes_[node.ring_next].next_in_bucket = node.next_in_bucket;
      *slot = node.ring_next;
    }
  }
  nodes_[node.ring_previous].ring_next = node.ring_next;
  nodes_[node.ring_next].ring_previous = node.ring_previous;
}

void NameIndex::requeue(MemberId id) {
  erase(id);
  insert(id);
}

MemberId NameIndex::next_of_same_name(MemberId id) const {
  const MemberId next = nodes_[id].ring_next;
  if (next == id) return kNoMember;  // most names: no look into the table
  return next == find(members_.at(id).name, nodes_[id].hash) ? kNoMember : next;
}

void NameIndex::set_case_sensitive(bool sensitive) {
  if (sensitive == case_sensitive_) return;
  std::vector<MemberId> heads;
  std::vector<MemberId> order;
  for (MemberId head : buckets_) {
    for (; head != kNoMember; head = nodes_[head].next_in_bucket) heads.push_back(head);
  }
  std::sort(heads.begin(), heads.end());
  order.reserve(nodes_.size());
  for (const MemberId head : heads) {
    MemberId id = head;
    do {
      order.push_back(id);
      id = nodes_[id].ring_next;
    } while (id != head);
  }
  case_sensitive_ = sensitive;
  std::fill(buckets_.begin(), buckets_.end(), kNoMember);
  for (const MemberId id : order) insert(id);
}

}  // namespace standin
