package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Code;
import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.CurrencyConversion;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Share;
import com.olvane.kep.olvane.outline.TimeBalance;
import com.olvane.kep.olvane.outline.TimeBalanceSkip;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.function.BiConsumer;
import java.util.function.Function;
import java.util.stream.Collectors;

/** All that can be read of a member and set, besides its name and place. */
final class MemberParts {
  /** One thing that a member has: as a text it is read of it, and set by changes. */
  static final class Part {
    /** What it is called. */
    final String label;
    /** The words for its values, by value; empty where it is a text. */
    final Map<String, String> words = new LinkedHashMap<>();
    final Function<Member, String> read;
    final BiConsumer<Changes, String> set;

    Part(String label, Function<Member, String> read, BiConsumer<Changes, String> set) {
      this.label = label;
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

  /** What is chosen, or is a word. */
  static final List<Part> PROPERTIES = Arrays.asList(
      code("Consolidation", Consolidation.values(), Member::consolidationCode,
          Changes::consolidationCode),
      code("Storage", Share.values(), Member::shareCode, Changes::shareCode),
      code("Time balance", TimeBalance.values(), Member::timeBalanceCode,
          Changes::timeBalanceCode),
      code("Balance skips", TimeBalanceSkip.values(), Member::timeBalanceSkipCode,
          Changes::timeBalanceSkipCode),
      flag("Two-pass calculation", Member::isTwoPass, Changes::twoPass),
      flag("Expense in variances", Member::isExpense, Changes::expense),
      code("Currency", CurrencyConversion.values(), Member::conversionCode,
          Changes::conversionCode),
      new Part("Currency member", Member::currencyMember, Changes::currencyMember));
  static final Part FORMULA = new Part("Formula", Member::formula, Changes::formula);
  static final Part COMMENT = new Part("Comment", Member::comment, Changes::comment);
  static final Part EXTENDED_COMMENT =
      new Part("Extended comment", Member::extendedComment, Changes::extendedComment);

  private MemberParts() {}

  private static Part code(String label, Code[] constants, Function<Member, Short> read,
      BiConsumer<Changes, Short> set) {
    Part part = new Part(label, member -> Short.toString(read.apply(member)),
        (changes, text) -> set.accept(changes, Short.valueOf(text)));
    for (Code constant : constants) {
      if (constant.code() >= 0) {
        part.words.put(Short.toString(constant.code()), constant.words());
      }
    }
    return part;
  }

  private static Part flag(
      String label, Function<Member, Boolean> read, BiConsumer<Changes, Boolean> set) {
    Part part = new Part(label, member -> Boolean.toString(read.apply(member)),
        (changes, text) -> set.accept(changes, Boolean.valueOf(text)));
    part.words.put("true", "yes");
    part.words.put("false", "no");
    return part;
  }

  /** The parts of members that were read with aliases of some tables. */
  static List<Part> all(List<String> tables) {
    List<Part> all = new ArrayList<>(PROPERTIES);
    Collections.addAll(all, FORMULA, COMMENT, EXTENDED_COMMENT);
    tables.forEach(table -> all.add(alias(table)));
    return all;
  }

  static Part alias(String table) {
    return new Part(table, member -> member.alias(table),
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
