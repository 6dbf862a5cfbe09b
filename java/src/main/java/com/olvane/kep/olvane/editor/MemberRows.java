package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Share;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
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
        : new MemberRows(workspace, selected).contents();
  }

  private RowsPane.Contents contents() {
    Member first = members.get(0);
    RowsPane.Contents contents = members.size() == 1
        ? new RowsPane.Contents(members, first.name(), describe(first))
        : new RowsPane.Contents(members, String.format("%,d members", members.size()),
            members.stream().limit(9).map(Member::name).collect(Collectors.joining(", ")));
    contents.add(RowsPane.Place.LEFT, "Properties", properties());
    contents.add(RowsPane.Place.RIGHT, "Aliases", first.details().aliasTables().stream()
        .map(table -> row(
            MemberParts.alias(table), "the alias in " + table, Row.atMost(ALIAS_LIMIT)))
        .collect(Collectors.toList()));
    contents.add(RowsPane.Place.RIGHT, "Attributes", attributes());
    contents.add(RowsPane.Place.RIGHT, "", Collections.singletonList(udas()));
    contents.add(RowsPane.Place.BELOW, "", Arrays.asList(
        row(MemberParts.FORMULA).in(() -> new FormulaArea(workspace)),
        row(MemberParts.COMMENT).in(() -> Row.area(2)),
        row(MemberParts.EXTENDED_COMMENT).in(() -> Row.area(3))));
    return contents;
  }

  private String describe(Member member) {
    List<Member> above = new ArrayList<>(outline.ancestors(member, Details.NONE));
    Collections.reverse(above);
    return String.format("%s   \u00b7   generation %d, level %d%s", above.isEmpty() ? "Dimension"
        : above.stream().map(Member::name).collect(Collectors.joining(" \u203a ")),
        member.generation(), member.level(), !member.hasChildren() ? ""
            : String.format(", %,d %s", member.childCount(),
                member.childCount() == 1 ? "child" : "children"));
  }

  /** What the members have in common; null where they differ. */
  private <T> T common(Function<Member, T> value) {
    T first = value.apply(members.get(0));
    return members.stream().allMatch(one -> Objects.equals(value.apply(one), first)) ? first : null;
  }

  private void change(String what, String value, Function<Member, Changes> changes) {
    String title = MemberEdits.title("Set " + what + " of", members);
    boolean isShort = !value.isEmpty() && value.length() < 50 && value.indexOf('\n') < 0;
    workspace.edit(
        MemberEdits.change(isShort ? title + " to " + value : title, members, changes));
  }

  private static Changes set(MemberParts.Part part, String value) {
    Changes changes = new Changes();
    part.set.accept(changes, value);
    return changes;
  }

  /** A row for what is chosen, or a text that the facade refuses where it does not fit. */
  private Row row(MemberParts.Part part) {
    String what = "the " + part.label.toLowerCase(Locale.ROOT);
    if (part.words.isEmpty()) {
      return row(part, what, Row.accordingTo(text -> set(part, text)));
    }
    String value = common(part.read);
    List<String> words = new ArrayList<>(part.words.values());
    List<String> values = new ArrayList<>(part.words.keySet());
    List<String> offered = new ArrayList<>(words);
    // A member becomes one of an attribute by where it stands.
    offered.remove(Share.ATTRIBUTE.words());
    return Row.chosen(part.label,
        value == null ? null : part.words.getOrDefault(value, "code " + value), offered,
        word -> change(what, word, member -> set(part, values.get(words.indexOf(word)))));
  }

  private Row row(MemberParts.Part part, String what, Function<String, String> refusal) {
    return Row.typed(part.label, common(part.read), refusal,
        text -> change(what, text, member -> set(part, text)));
  }

  // ---- Rows ----

  private List<Row> properties() {
    List<Row> rows = new ArrayList<>();
    if (members.size() == 1) {
      rows.add(Row.typed("Name", members.get(0).name(), Row.accordingTo(NewMember::new),
          name -> workspace.edit(MemberEdits.rename(members.get(0), name))));
    }
    MemberParts.PROPERTIES.forEach(part -> rows.add(row(part)));
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
    return Row.typed(
        "User-defined attributes " + (members.size() == 1 ? "" : "of all ") + "(one a line)",
        String.join("\n", common), MemberRows::refuseUdas,
        text -> change("the user-defined attributes", text, member -> changes.apply(member, text)))
        .in(() -> Row.area(5));
  }

  /** Tells what is wrong with the first line that is no user-defined attribute. */
  private static String refuseUdas(String text) {
    int number = 0;
    for (String line : text.split("\n")) {
      number++;
      String reason = line.trim().isEmpty() ? null
          : Row.accordingTo(new Changes()::uda).apply(line.trim());
      if (reason != null) {
        return "Line " + number + ": " + reason;
      }
    }
    return null;
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
    change(dimension, name, member -> {
      Changes changes = new Changes();
      of(member, dimension).forEach(changes::withoutAttribute);
      return name.isEmpty() || name.equals(NONE) ? changes : changes.attribute(name);
    });
  }
}
