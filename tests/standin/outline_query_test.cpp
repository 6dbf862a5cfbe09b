// Member queries: what each kind answers, paging, wildcards and bad requests.
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

class Queries : public OutlineTest {
 protected:
  void SetUp() override {
    OutlineTest::SetUp();
    year_ = dimension("Year", kCategoryTime);
    for (const char* quarter : {"Qtr1", "Qtr2"}) {
      const HMember added = child(year_, quarter);
      for (const char month : {'a', 'b'}) child(added, std::string(quarter) + month);
    }
    product_ = dimension("Product");
    cola_ = child(product_, "Cola");
    diet_ = child(cola_, "Diet Cola");
    OlvOtlSetMemberAlias(h_, diet_, nullptr, "Qtr light");
  }
  Names search(const char* pattern, const char* dimension = nullptr, HMember start = 0) {
    return names(query(kQuerySearch, start, kQueryOptionNames, dimension, pattern).members);
  }

  HMember year_ = 0, product_ = 0, cola_ = 0, diet_ = 0;
};

TEST_F(Queries, ChildrenAndParents) {
  EXPECT_EQ(names(query(kQueryChildren, 0).members), (Names{"Year", "Product"}));
  EXPECT_EQ(query(kQueryChildren, year_, 0, "any text").members, children(year_));
  EXPECT_EQ(query_by_name(kQueryChildren, nullptr).members, children(0));
  EXPECT_EQ(query_by_name(kQueryChildren, "cola", 0, "cola").members, Handles{diet_});
  EXPECT_EQ(query(kQueryChildren, diet_).total, 0U);
  EXPECT_EQ(query(kQueryParent, diet_, 1).members, Handles{cola_});
  EXPECT_EQ(query(kQueryParent, product_).members, Handles{});
  EXPECT_EQ(query_by_name(kQueryParent, "Qtr2b").members, Handles{find("Qtr2")});
  EXPECT_EQ(query_by_name(kQueryChildren, "Nobody").status, standin::kMemberNotFound);
  EXPECT_EQ(query(kQueryChildren, 4711).status, standin::kBadMember);
  EXPECT_EQ(query(99, 0).status, standin::kBadQuery);
}

// Two dimensions with a member X each, and a shared X that came before both.
TEST_F(Queries, NamesAreLookedUpInTheirDimensionAndBeforeSharedMembers) {
  const HMember a = dimension("A"), b = dimension("B");
  const HMember shared = child(a, "X");
  set(shared, &MemberInfoRecord::shareOption, kShareShared);
  const auto namesake = [&](HMember parent) {
    const HMember added = child(parent, "other");
    EXPECT_EQ(rename(added, "X"), 0);
    return added;
  };
  const HMember first = namesake(a), second = namesake(b);
  const HMember a1 = child(first, "a1"), b1 = child(second, "b1");

  EXPECT_EQ(find("x"), first);
  EXPECT_EQ(query(kQueryNamedMember, 0, kQueryOptionNames, nullptr, "X").members,
            (Handles{first, second, shared}));
  EXPECT_EQ(query_by_name(kQueryChildren, "X", 0, "A").members, Handles{a1});
  EXPECT_EQ(query_by_name(kQueryChildren, "X", 0, "b").members, Handles{b1});
  EXPECT_EQ(query_by_name(kQueryParent, "X", 0, "B").members, Handles{b});
  for (const char* none : {static_cast<const char*>(nullptr), "", "x"}) {
    EXPECT_EQ(query_by_name(kQueryChildren, "X", 0, none).members, Handles{a1});
  }
  EXPECT_EQ(query_by_name(kQueryChildren, "X", 0, "Year").status, standin::kMemberNotFound);
  EXPECT_EQ(query_by_name(kQueryChildren, "X", 0, "Cola").status, standin::kNoSuchDimension);
  EXPECT_EQ(remove(first), 0);
  EXPECT_EQ(find("X"), second);
  EXPECT_EQ(remove(second), 0);
  EXPECT_EQ(find("X"), shared);
}

TEST_F(Queries, PagesCoverEveryMatchOnce) {
  const Handles all = query(kQuerySearch, 0, kQueryOptionNames, nullptr, "*").members;
  ASSERT_EQ(all.size(), 10U);
  for (const uint32_t most : {1U, 3U, 4U, 10U, 11U}) {
    Handles found;
    for (uint32_t first = 0; first < 12; first += most) {
      const Answer page =
          query(kQuerySearch, 0, kQueryOptionNames, nullptr, "*", nullptr, first, most);
      EXPECT_EQ(page.total, 10U);
      EXPECT_LE(page.members.size(), most);
      found.insert(found.end(), page.members.begin(), page.members.end());
    }
    EXPECT_EQ(found, all);
  }
  const auto first_of = [&](uint32_t first, uint32_t most) {
    return query(kQueryChildren, year_, 0, nullptr, nullptr, nullptr, first, most).members;
  };
  EXPECT_EQ(first_of(1, 0), Handles{find("Qtr2")});
  EXPECT_EQ(first_of(2, 1), Handles{});
  EXPECT_EQ(first_of(~0U, ~0U), Handles{});
}

TEST_F(Queries, PagesSeeEveryChangeBetweenThem) {
  const HMember top = dimension("Top");
  for (const char* text : {"a", "b", "c", "d", "e"}) child(top, text);
  const auto page = [&](uint32_t first) {
    return names(query(kQueryChildren, top, 0, nullptr, nullptr, nullptr, first, 2).members);
  };
  EXPECT_EQ(page(2), (Names{"c", "d"}));
  EXPECT_EQ(page(1), (Names{"b", "c"}));
  remove(find("b"));
  EXPECT_EQ(page(1), (Names{"c", "d"}));
  EXPECT_EQ(try_child(top, "first"), 0);
  EXPECT_EQ(page(1), (Names{"a", "c"}));
  EXPECT_EQ(OlvOtlSortChildren(h_, top, kSortDescending, 0, 0), 0);
  EXPECT_EQ(page(1), (Names{"e", "d"}));
  EXPECT_EQ(OlvOtlMoveMember(h_, find("e"), 0, find("c")), 0);
  EXPECT_EQ(page(1), (Names{"d", "c"}));

  // Among many children, in any order of pages.
  for (int i = 0; i < 300; ++i) EXPECT_EQ(try_child(top, "m" + std::to_string(i)), 0);
  for (const uint32_t first : {200U, 0U, 63U, 64U, 65U, 128U, 127U, 250U}) {
    const Names all = names(children(top));
    EXPECT_EQ(page(first), (Names{all.at(first), all.at(first + 1)})) << first;
    EXPECT_EQ(remove(find(all.at(first))), 0);
  }
}

TEST_F(Queries, SearchesNamesAndAliasesInPreOrder) {
  EXPECT_EQ(search("qtr?"), (Names{"Qtr1", "Qtr2"}));
  EXPECT_EQ(search("*COLA"), (Names{"Cola", "Diet Cola"}));
  EXPECT_EQ(search("*", "Product"), (Names{"Product", "Cola", "Diet Cola"}));
  EXPECT_EQ(search("*", "Product", find("Qtr1")), Names{});
  EXPECT_EQ(search("*", nullptr, cola_), (Names{"Cola", "Diet Cola"}));
  EXPECT_EQ(search("tr1"), Names{});
  EXPECT_EQ(search("", nullptr), Names{});
  const auto with_aliases = [&](const char* table) {
    return query(kQuerySearch, 0, kQueryOptionAliases, nullptr, "Qtr*t", table);
  };
  EXPECT_EQ(with_aliases("Default").members, Handles{diet_});
  EXPECT_EQ(with_aliases(nullptr).members, Handles{diet_});
  EXPECT_EQ(with_aliases("French").status, standin::kNoSuchAliasTable);
  EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames, "Cola", "*").status,
            standin::kNoSuchDimension);
  EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames).status, standin::kBadQuery);

  // A character outside the basic plane takes six bytes here and is one all the same.
  child(cola_, "\xED\xA0\x83\xED\xBC\x93z");
  EXPECT_EQ(search("?z").size(), 1U);
  EXPECT_EQ(search("??z").size(), 0U);

  EXPECT_EQ(rename(diet_, "Qtr1"), 0);
  const Answer named = query(kQueryNamedMember, 0, kQueryOptionNames, nullptr, "QTR1");
  EXPECT_EQ(named.members, (Handles{find("Qtr1"), diet_}));
  EXPECT_EQ(query_by_name(kQueryNamedMember, nullptr, 1, nullptr, "Nobody").total, 0U);
}

TEST_F(Queries, TimeSeriesMembersWhateverTheStart) {
  const auto ask = [&](const char* dimension, const char* pattern, HMember start) {
    return query(kQueryTimeSeriesMembers, start, 0, dimension, pattern);
  };
  EXPECT_EQ(names(ask("Year", "lev0,Year", 0xBF801234).members),
            (Names{"Qtr1a", "Qtr1b", "Qtr2a", "Qtr2b"}));
  EXPECT_EQ(ask("Year", "lev0,Product", 0).status, standin::kBadQuery);
  EXPECT_EQ(ask("Year", "lev", 0).status, standin::kBadQuery);
  EXPECT_EQ(ask("Cola", "lev0,Cola", 0).status, standin::kNoSuchDimension);
  EXPECT_EQ(ask(nullptr, nullptr, 0).status, standin::kBadQuery);
}

TEST_F(Queries, UdasOfADimensionOnceInOrder) {
  OlvOtlSetUserAttribute(h_, diet_, "Light");
  OlvOtlSetUserAttribute(h_, cola_, "Old");
  OlvOtlSetUserAttribute(h_, diet_, "OLD");
  OlvOtlSetUserAttribute(h_, year_, "Elsewhere");
  const MemberQuery asked{kQueryDimensionUdas, 0, "product", nullptr, nullptr};
  MemberQueryCounts counts{};
  char* block = nullptr;
  ASSERT_EQ(OlvOtlGetDimensionUserAttributes(h_, &asked, &counts, &block), 0);
  EXPECT_EQ(counts.totalCount, 2U);
  EXPECT_EQ(taken_udas(counts.returned, block), (Names{"Old", "Light"}));
  counts = {1, 5, 0, 0};
  ASSERT_EQ(OlvOtlGetDimensionUserAttributes(h_, &asked, &counts, &block), 0);
  EXPECT_EQ(taken_udas(counts.returned, block), Names{"Light"});
  const MemberQuery unknown{kQueryDimensionUdas, 0, "Cola", nullptr, nullptr};
  EXPECT_EQ(OlvOtlGetDimensionUserAttributes(h_, &unknown, &counts, &block),
            standin::kNoSuchDimension);
}
