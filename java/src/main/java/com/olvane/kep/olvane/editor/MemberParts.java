package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Function;
import java.util.stream.Collectors;

/** All that can be read of a member and set, besides its name and place. */
final class MemberParts {
  /** One thing that a member has: as a text it is read of it, and set by changes. */
  static final class Part {
    final Function<Member, String> read;
    private final BiConsumer<Changes, String> set;

    Part(Function<Member, String> read, BiConsumer<Changes, String> set) {
      this.read = read;
      this.set = set;
    }

    /** Sets what differs. */
    void set(Changes changes, String before, String after) {
      if (!before.equals(after)) {
        set.accept(changes, after);
      }
    }
  }

  private static final List<Part> PARTS = Arrays.asList(
      code(Member::consolidationCode, Changes::consolidationCode),
      code(Member::conversionCode, Changes::conversionCode),
      code(Member::timeBalanceCode, Changes::timeBalanceCode),
      code(Member::timeBalanceSkipCode, Changes::timeBalanceSkipCode),
      code(Member::shareCode, Changes::shareCode),
      flag(Member::isTwoPass, Changes::twoPass), flag(Member::isExpense, Changes::expense),
      new Part(Member::currencyMember, Changes::currencyMember),
      new Part(Member::comment, Changes::comment),
      new Part(Member::extendedComment, Changes::extendedComment),
      new Part(Member::formula, Changes::formula));

  private MemberParts() {}

  private static Part code(Function<Member, Short> read, BiConsumer<Changes, Short> set) {
    return new Part(member -> Short.toString(read.apply(member)),
        (changes, text) -> set.accept(changes, Short.valueOf(text)));
  }

  private static Part flag(Function<Member, Boolean> read, BiConsumer<Changes, Boolean> set) {
    return new Part(member -> Boolean.toString(read.apply(member)),
        (changes, text) -> set.accept(changes, Boolean.valueOf(text)));
  }

  /** The parts of members that were read with aliases of some tables. */
  static List<Part> all(List<String> tables) {
    List<Part> all = new ArrayList<>(PARTS);
    tables.forEach(table -> all.add(new Part(
        member -> member.alias(table), (changes, alias) -> changes.alias(table, alias))));
    return all;
  }

  /** The details to be read for all parts. */
  static Details all(Outline outline) {
    return Details.NONE.formula().extendedComment().udas().attributes()
        .aliases(outline.aliasTables().names().toArray(new String[0]));
  }

  static List<String> attributes(Member member) {
    return member.attributes().stream().map(Attribute::name).collect(Collectors.toList());
  }

  /** What makes one member, read with all details, like another. */
  static Changes difference(Member from, Member to) {
    Changes changes = new Changes();
    all(to.details().aliasTables()).forEach(
        part -> part.set(changes, part.read.apply(from), part.read.apply(to)));
    if (!from.udas().equals(to.udas())) {
      from.udas().forEach(changes::withoutUda);
      to.udas().forEach(changes::uda);
    }
    if (!attributes(from).equals(attributes(to))) {
      attributes(from).forEach(changes::withoutAttribute);
      attributes(to).forEach(changes::attribute);
    }
    return changes;
  }
}
