package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Function;
import java.util.stream.Collectors;

/** Changes details of members. */
final class ChangeEdit implements Edit {
  private final String title;
  private final List<Ref> members;
  private final Function<Member, Changes> changes;
  /** What takes it back, by member. */
  private final List<Changes> inverse = new ArrayList<>();

  /** Changes each member in its own way, which is made for what it is then. */
  ChangeEdit(String title, List<Member> members, Function<Member, Changes> changes) {
    this.title = title;
    this.members = members.stream().map(Ref::to).collect(Collectors.toList());
    this.changes = changes;
  }

  @Override
  public String title() {
    return title;
  }

  @Override
  public void apply(EditContext context) {
    inverse.clear();
    Details details = all(context.outline());
    try {
      for (Ref ref : members) {
        context.progress(inverse.size(), members.size());
        Member before = context.member(ref, details);
        inverse.add(change(context, before, changes.apply(before)));
      }
    } catch (RuntimeException e) {
      for (int i = inverse.size() - 1; i >= 0; i--) {
        context.outline().change(context.member(members.get(i)), inverse.get(i));
      }
      throw e;
    }
  }

  /** Changes one member wholly or not at all; what takes it back. */
  private static Changes change(EditContext context, Member before, Changes changes) {
    Outline outline = context.outline();
    try {
      Member after = outline.change(before, changes);
      context.change().member(before.handle());
      return difference(after, before);
    } catch (OutlineException e) {
      Member half = outline.read(before, before.details());
      outline.change(half, difference(half, before));
      throw e;
    }
  }

  @Override
  public void revert(EditContext context) {
    for (int i = members.size() - 1; i >= 0; i--) {
      context.outline().change(context.member(members.get(i)), inverse.get(i));
      context.change().member(members.get(i).handle);
    }
  }

  /** Everything that can be read of a member and changed. */
  static Details all(Outline outline) {
    return Details.NONE.formula().extendedComment().udas().attributes()
        .aliases(outline.aliasTables().names().toArray(new String[0]));
  }

  /** What makes one member, read with all details, like another. */
  static Changes difference(Member from, Member to) {
    Changes changes = new Changes();
    if (from.consolidationCode() != to.consolidationCode()) {
      changes.consolidationCode(to.consolidationCode());
    }
    if (from.conversionCode() != to.conversionCode()) {
      changes.conversionCode(to.conversionCode());
    }
    if (from.timeBalanceCode() != to.timeBalanceCode()) {
      changes.timeBalanceCode(to.timeBalanceCode());
    }
    if (from.timeBalanceSkipCode() != to.timeBalanceSkipCode()) {
      changes.timeBalanceSkipCode(to.timeBalanceSkipCode());
    }
    if (from.shareCode() != to.shareCode()) {
      changes.shareCode(to.shareCode());
    }
    if (from.isTwoPass() != to.isTwoPass()) {
      changes.twoPass(to.isTwoPass());
    }
    if (from.isExpense() != to.isExpense()) {
      changes.expense(to.isExpense());
    }
    addTexts(changes, from, to);
    if (!from.udas().equals(to.udas())) {
      from.udas().forEach(changes::withoutUda);
      to.udas().forEach(changes::uda);
    }
    List<String> had = names(from.attributes());
    List<String> has = names(to.attributes());
    if (!had.equals(has)) {
      had.forEach(changes::withoutAttribute);
      has.forEach(changes::attribute);
    }
    return changes;
  }

  private static void addTexts(Changes changes, Member from, Member to) {
    if (!from.currencyMember().equals(to.currencyMember())) {
      changes.currencyMember(to.currencyMember());
    }
    if (!from.comment().equals(to.comment())) {
      changes.comment(to.comment());
    }
    if (!from.extendedComment().equals(to.extendedComment())) {
      changes.extendedComment(to.extendedComment());
    }
    if (!from.formula().equals(to.formula())) {
      changes.formula(to.formula());
    }
    for (String table : to.details().aliasTables()) {
      if (!from.alias(table).equals(to.alias(table))) {
        changes.alias(table, to.alias(table));
      }
    }
  }

  private static List<String> names(List<Attribute> attributes) {
    return attributes.stream().map(Attribute::name).collect(Collectors.toList());
  }
}
