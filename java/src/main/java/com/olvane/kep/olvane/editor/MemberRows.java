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
import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Set;
import java.util.function.BiFunction;
import java.util.function.Function;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Everything about the selected members in rows: what they have in common is shown, and a change
 * is one of all of them.
 */
final class MemberRows {
  /** Bytes of an alias that an outline keeps. */
  static final int ALIAS_LIMIT = 80;
  /** So many members are held with all that they have. */
  private static final int MOST = 10_000;
  /** An attribute dimension with more members has them typed in instead of chosen. */
  private static final int MOST_CHOICES = 300;
  private static final String NONE = "(none)";

  private final Workspace workspace;
  private final Outline outline;
  private final List<Member> members;

  private MemberRows(Workspace workspace, List<Member> selected) {
    this.workspace = workspace;
    outline = workspace.outline;
    members = outline.read(
        selected.stream().mapToInt(Member::handle).toArray(), MemberParts.all(outline));
  }

  /** Reads what members have. */
  static RowsPane.Contents read(Workspace workspace, List<Member> selected) {
    return selected.isEmpty()
        ? new RowsPane.Contents("", "", "Select a member in the tree to see what it has.")
        : selected.size() > MOST
            ? new RowsPane.Contents("", "", String.format(
                "%,d members are selected; details are shown of up to %,d at once.",
                selected.size(), MOST))
            : new MemberRows(workspace, selected).contents();
  }

  private RowsPane.Contents contents() {
    Member first = members.get(0);
    RowsPane.Contents contents = members.size() == 1
        ? new RowsPane.Contents(members, first.name(), describe(first))
        : new RowsPane.Contents(members, members.size() + " members", members.stream().limit(9)
            .map(Member::name).collect(Collectors.joining(", ")));
    contents.add(RowsPane.Place.LEFT, "Properties", properties());
    contents.add(RowsPane.Place.RIGHT, "Aliases", first.details().aliasTables().stream()
        .map(table -> Row.typed(table, common(member -> member.alias(table)),
            Row.atMost(ALIAS_LIMIT), alias -> change("Set the alias in " + table,
                member -> new Changes().alias(table, alias))))
        .collect(Collectors.toList()));
    contents.add(RowsPane.Place.RIGHT, "Attributes", attributes());
    contents.add(RowsPane.Place.RIGHT, "", Collections.singletonList(udas()));
    contents.add(RowsPane.Place.BELOW, "", Arrays.asList(
        text("Formula", "the formula", Member::formula, Changes::formula)
            .in(() -> new FormulaArea(workspace)),
        text("Comment", "the comment", Member::comment, Changes::comment).in(() -> Row.area(1)),
        text("Extended comment", "the extended comment", Member::extendedComment,
            Changes::extendedComment).in(() -> Row.area(3))));
    return contents;
  }

  private String describe(Member member) {
    List<Member> above = outline.ancestors(member, Details.NONE);
    StringBuilder text = new StringBuilder(above.isEmpty() ? "Dimension" : "");
    for (Member one : above) {
      text.insert(0, one.name() + (text.length() == 0 ? "" : " \u203a "));
    }
    text.append("   \u00b7   generation ").append(member.generation());
    text.append(", level ").append(member.level());
    if (member.hasChildren()) {
      text.append(String.format(", %,d %s", member.childCount(),
          member.childCount() == 1 ? "child" : "children"));
    }
    return text.toString();
  }

  /** What the members have in common; null where they differ. */
  private <T> T common(Function<Member, T> value) {
    T first = value.apply(members.get(0));
    return members.stream().allMatch(one -> Objects.equals(value.apply(one), first)) ? first : null;
  }

  private void change(String verb, Function<Member, Changes> changes) {
    workspace.edit(MemberEdits.change(MemberEdits.title(verb + " of", members), members, changes));
  }

  // ---- Kinds of rows ----

  /** A text, which the facade refuses where it does not fit. */
  private Row text(String label, String what, Function<Member, String> value,
      BiFunction<Changes, String, Changes> set) {
    return Row.typed(label, common(value),
        Row.accordingTo(text -> set.apply(new Changes(), text)),
        text -> change("Set " + what, member -> set.apply(new Changes(), text)));
  }

  private <C extends Code> Row code(String label, C[] constants, Function<Member, C> value,
      Function<Member, Short> number, BiFunction<Changes, C, Changes> set) {
    Map<String, C> choices = new LinkedHashMap<>();
    for (C constant : constants) {
      if (constant.code() >= 0) {
        choices.put(constant.words(), constant);
      }
    }
    Short code = common(number);
    C constant = value.apply(members.get(0));
    String now = code == null ? null : constant.code() < 0 ? "code " + code : constant.words();
    return Row.chosen(label, now, new ArrayList<>(choices.keySet()), words ->
        change("Set " + label, member -> set.apply(new Changes(), choices.get(words))));
  }

  private Row flag(String label, Function<Member, Boolean> value,
      BiFunction<Changes, Boolean, Changes> set) {
    return Row.yesNo(label, common(value), chosen -> change((chosen ? "Set " : "Clear ") + label,
        member -> set.apply(new Changes(), chosen)));
  }

  // ---- Rows ----

  private List<Row> properties() {
    List<Row> rows = new ArrayList<>();
    if (members.size() == 1) {
      rows.add(Row.typed("Name", members.get(0).name(), Row.accordingTo(NewMember::new),
          name -> workspace.edit(MemberEdits.rename(members.get(0), name))));
    }
    rows.add(code("Consolidation", Consolidation.values(), Member::consolidation,
        Member::consolidationCode, Changes::consolidation));
    rows.add(code("Storage", Share.values(), Member::share, Member::shareCode, Changes::share));
    rows.add(code("Time balance", TimeBalance.values(), Member::timeBalance,
        Member::timeBalanceCode, Changes::timeBalance));
    rows.add(code("Balance skips", TimeBalanceSkip.values(), Member::timeBalanceSkip,
        Member::timeBalanceSkipCode, Changes::timeBalanceSkip));
    rows.add(flag("Two-pass calculation", Member::isTwoPass, Changes::twoPass));
    rows.add(flag("Expense in variances", Member::isExpense, Changes::expense));
    rows.add(code("Currency", CurrencyConversion.values(), Member::conversion,
        Member::conversionCode, Changes::conversion));
    rows.add(text("Currency member", "the currency member", Member::currencyMember,
        Changes::currencyMember));
    return rows;
  }

  /**
   * The user-defined attributes that all members have, one a line. A line that is added is one for
   * all, a line that goes goes from all; what only some have stays.
   */
  private Row udas() {
    Set<String> common = new LinkedHashSet<>(members.get(0).udas());
    members.forEach(member -> common.retainAll(member.udas()));
    BiFunction<Member, String, Changes> changes = (member, text) -> {
      List<String> lines = Arrays.stream(text.split("\n")).map(String::trim)
          .filter(line -> !line.isEmpty()).distinct().collect(Collectors.toList());
      Changes made = new Changes();
      lines.stream().filter(line -> !member.udas().contains(line)).forEach(made::uda);
      member.udas().stream().filter(uda -> common.contains(uda) && !lines.contains(uda))
          .forEach(made::withoutUda);
      return made;
    };
    return Row.typed("User-defined attributes (one a line)", String.join("\n", common),
        Row.accordingTo(text -> members.forEach(member -> changes.apply(member, text))),
        text -> change("Set the user-defined attributes", member -> changes.apply(member, text)))
        .in(() -> Row.area(3));
  }

  /** The associated attribute members, by the attribute dimensions of the members' dimension. */
  private List<Row> attributes() {
    List<Row> rows = new ArrayList<>();
    Integer handle = common(Member::dimensionHandle);
    if (handle == null || members.stream().anyMatch(Member::isDimension)) {
      return rows;
    }
    Details attributes = Details.NONE.attributes();
    for (Attribute one : outline.read(new int[] {handle}, attributes).get(0).attributes()) {
      Member root = outline.read(new int[] {one.handle()}, Details.NONE).get(0);
      List<String> names = new ArrayList<>();
      names.add(NONE);
      try (Stream<Member> all = outline.subtree(root, Details.NONE)) {
        all.skip(1).limit(MOST_CHOICES + 1).map(Member::name).forEach(names::add);
      }
      List<String> has = common(member -> of(member, root.name()));
      String now = has == null ? null : has.isEmpty() ? NONE : String.join(", ", has);
      rows.add(names.size() > MOST_CHOICES
          ? Row.typed(root.name(), now, text -> null, name -> associate(root.name(), name))
          : Row.chosen(root.name(), now, names, name -> associate(root.name(), name)));
    }
    return rows;
  }

  /** The attributes of a member in one dimension, mostly one. */
  private static List<String> of(Member member, String dimension) {
    return member.attributes().stream().filter(one -> one.dimension().equals(dimension))
        .map(Attribute::name).collect(Collectors.toList());
  }

  private void associate(String dimension, String name) {
    change("Set " + dimension, member -> {
      Changes changes = new Changes();
      of(member, dimension).forEach(changes::withoutAttribute);
      return name.isEmpty() || name.equals(NONE) ? changes : changes.attribute(name);
    });
  }
}
