package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.Arrays;
import java.util.List;
import java.util.function.BiFunction;
import java.util.function.Function;
import java.util.stream.Collectors;

/** All that can be read of a member and set, besides its name and place. */
final class MemberParts {
  /** One thing that a member has, read of it and set by changes. */
  static final class Part<T> {
    final Function<Member, T> read;
    final BiFunction<Changes, T, Changes> set;

    Part(Function<Member, T> read, BiFunction<Changes, T, Changes> set) {
      this.read = read;
      this.set = set;
    }

    private void addDifference(Changes changes, Member from, Member to) {
      if (!read.apply(from).equals(read.apply(to))) {
        set.apply(changes, read.apply(to));
      }
    }
  }

  static final Part<Short> SHARE = new Part<>(Member::shareCode, Changes::shareCode);
  static final List<Part<Short>> CODES = Arrays.asList(
      new Part<>(Member::consolidationCode, Changes::consolidationCode),
      new Part<>(Member::conversionCode, Changes::conversionCode),
      new Part<>(Member::timeBalanceCode, Changes::timeBalanceCode),
      new Part<>(Member::timeBalanceSkipCode, Changes::timeBalanceSkipCode), SHARE);
  static final List<Part<Boolean>> FLAGS = Arrays.asList(
      new Part<>(Member::isTwoPass, Changes::twoPass),
      new Part<>(Member::isExpense, Changes::expense));
  static final List<Part<String>> TEXTS = Arrays.asList(
      new Part<>(Member::currencyMember, Changes::currencyMember),
      new Part<>(Member::comment, Changes::comment),
      new Part<>(Member::extendedComment, Changes::extendedComment),
      new Part<>(Member::formula, Changes::formula));

  private MemberParts() {}

  static Part<String> alias(String table) {
    return new Part<>(member -> member.alias(table),
        (changes, alias) -> changes.alias(table, alias));
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
    CODES.forEach(part -> part.addDifference(changes, from, to));
    FLAGS.forEach(part -> part.addDifference(changes, from, to));
    TEXTS.forEach(part -> part.addDifference(changes, from, to));
    to.details().aliasTables().forEach(table -> alias(table).addDifference(changes, from, to));
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
