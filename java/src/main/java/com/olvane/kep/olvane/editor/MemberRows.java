package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Code;
import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.CurrencyConversion;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Share;
import com.olvane.kep.olvane.outline.TimeBalance;
import com.olvane.kep.olvane.outline.TimeBalanceSkip;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.function.BiConsumer;
import java.util.function.BiFunction;
import java.util.function.Function;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The rows of what members have: properties in words, aliases, attributes. */
final class MemberRows {
  /** Bytes of an alias that an outline keeps. */
  static final int ALIAS_LIMIT = 80;
  /** An attribute dimension with more members has them typed in instead of chosen. */
  private static final int MOST_CHOICES = 300;
  private static final String NONE = "(none)";

  private final Workspace workspace;
  private final List<Member> members;
  private final List<RowGrid.Row> rows = new ArrayList<>();

  private MemberRows(Workspace workspace, List<Member> members) {
    this.workspace = workspace;
    this.members = members;
  }

  /** What several members have in common; null where they differ. */
  static <T> T common(List<Member> members, Function<Member, T> value) {
    T first = value.apply(members.get(0));
    return members.stream().allMatch(one -> Objects.equals(value.apply(one), first)) ? first : null;
  }

  private static String shown(String common) {
    return common == null ? RowGrid.DIFFERENT : common;
  }

  private void change(String verb, Function<Member, Changes> changes) {
    workspace.edit(MemberEdits.change(MemberEdits.title(verb + " of", members), members, changes));
  }

  /** Name and properties. */
  static List<RowGrid.Row> properties(Workspace workspace, List<Member> members) {
    MemberRows of = new MemberRows(workspace, members);
    if (members.size() == 1) {
      of.rows.add(RowGrid.Row.typed("Name", members.get(0).name(),
          TextCommit.accordingTo(NewMember::new),
          name -> workspace.edit(MemberEdits.rename(members.get(0), name))));
    }
    of.addCode("Consolidation", Consolidation.values(), Member::consolidation,
        Member::consolidationCode, Changes::consolidation);
    of.addCode("Storage", Share.values(), Member::share, Member::shareCode, Changes::share);
    of.addCode("Time balance", TimeBalance.values(), Member::timeBalance, Member::timeBalanceCode,
        Changes::timeBalance);
    of.addCode("Balance skips", TimeBalanceSkip.values(), Member::timeBalanceSkip,
        Member::timeBalanceSkipCode, Changes::timeBalanceSkip);
    of.addFlag("Two-pass calculation", Member::isTwoPass, Changes::twoPass);
    of.addFlag("Expense in variances", Member::isExpense, Changes::expense);
    of.addCode("Currency", CurrencyConversion.values(), Member::conversion, Member::conversionCode,
        Changes::conversion);
    of.rows.add(RowGrid.Row.typed("Currency member", shown(common(members, Member::currencyMember)),
        TextCommit.accordingTo(text -> new Changes().currencyMember(text)),
        text -> of.change("Set the currency member",
            member -> new Changes().currencyMember(text))));
    return of.rows;
  }

  private <C extends Code> void addCode(String label, C[] constants, Function<Member, C> value,
      Function<Member, Short> number, BiFunction<Changes, C, Changes> set) {
    Map<String, C> choices = new LinkedHashMap<>();
    for (C constant : constants) {
      if (constant.code() >= 0) {
        choices.put(constant.words(), constant);
      }
    }
    Short code = common(members, number);
    C constant = value.apply(members.get(0));
    String now = code == null ? RowGrid.DIFFERENT
        : constant.code() < 0 ? "code " + code : constant.words();
    rows.add(RowGrid.Row.chosen(label, now, new ArrayList<>(choices.keySet()), words -> {
      if (choices.containsKey(words)) {
        change("Set " + label, member -> set.apply(new Changes(), choices.get(words)));
      }
    }));
  }

  private void addFlag(
      String label, Function<Member, Boolean> value, BiConsumer<Changes, Boolean> set) {
    rows.add(RowGrid.Row.yesNo(label, common(members, value), chosen ->
        change((chosen ? "Set " : "Clear ") + label, member -> {
          Changes changes = new Changes();
          set.accept(changes, chosen);
          return changes;
        })));
  }

  /** The aliases in all tables. */
  static List<RowGrid.Row> aliases(Workspace workspace, List<Member> members) {
    MemberRows of = new MemberRows(workspace, members);
    for (String table : members.get(0).details().aliasTables()) {
      of.rows.add(RowGrid.Row.typed(table, shown(common(members, member -> member.alias(table))),
          TextCommit.atMost(ALIAS_LIMIT), alias -> of.change("Set the alias in " + table,
              member -> new Changes().alias(table, alias))));
    }
    return of.rows;
  }

  // ---- Attributes ----

  /** The attribute dimensions of the members' dimension with their members; on the work thread. */
  static Map<String, List<String>> readAttributes(Outline outline, List<Member> members) {
    Map<String, List<String>> read = new LinkedHashMap<>();
    Integer handle = common(members, Member::dimensionHandle);
    if (handle == null || members.stream().anyMatch(Member::isDimension)) {
      return read;
    }
    Member dimension = outline.read(new int[] {handle}, Details.NONE.attributes()).get(0);
    for (Attribute attribute : dimension.attributes()) {
      Member root = outline.read(new int[] {attribute.handle()}, Details.NONE).get(0);
      try (Stream<Member> all = outline.subtree(root, Details.NONE)) {
        read.put(root.name(), all.skip(1).limit(MOST_CHOICES + 1).map(Member::name)
            .collect(Collectors.toList()));
      }
    }
    return read;
  }

  /** The attributes of a member in one dimension, mostly one. */
  private static List<String> of(Member member, String dimension) {
    return member.attributes().stream().filter(one -> one.dimension().equals(dimension))
        .map(Attribute::name).collect(Collectors.toList());
  }

  /** The associated attribute members, by their dimensions. */
  static List<RowGrid.Row> attributes(
      Workspace workspace, List<Member> members, Map<String, List<String>> choices) {
    MemberRows of = new MemberRows(workspace, members);
    choices.forEach((dimension, names) -> {
      List<String> common = common(members, member -> of(member, dimension));
      String now = common == null ? RowGrid.DIFFERENT
          : common.isEmpty() ? NONE : String.join(", ", common);
      List<String> offered = new ArrayList<>(names);
      offered.add(0, NONE);
      of.rows.add(names.size() > MOST_CHOICES
          ? RowGrid.Row.typed(dimension, now, text -> null, name -> of.associate(dimension, name))
          : RowGrid.Row.chosen(dimension, now, offered, name -> of.associate(dimension, name)));
    });
    return of.rows;
  }

  private void associate(String dimension, String name) {
    change("Set " + dimension, member -> {
      Changes changes = new Changes();
      of(member, dimension).forEach(changes::withoutAttribute);
      return name.isEmpty() || name.equals(NONE) ? changes : changes.attribute(name);
    });
  }
}
