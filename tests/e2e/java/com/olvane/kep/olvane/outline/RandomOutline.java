package com.olvane.kep.olvane.outline;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.CurrencyConversion;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.defs.outline.TimeBalance;
import com.olvane.kep.olvane.defs.outline.TimeBalanceSkip;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;

/**
 * A tree of members with random details, texts outside the basic plane and names in use among
 * them. It can be planned for the facade, and made member by member by the native methods.
 */
final class RandomOutline {
  static final String[] TABLES = {"Default", "Français", "長い"};
  private static final String[] LETTERS = {"a", "B", "é", "世", "\uD83C\uDF0D", "\0", " "};

  /** One member; what is null or missing is not given. */
  static final class Planned {
    String name;
    short[] codes;
    Boolean twoPass;
    Boolean expense;
    String currencyMember;
    String comment;
    String formula;
    String[] aliases = new String[TABLES.length];
    List<String> udas = new ArrayList<>();
    List<Planned> children = new ArrayList<>();
  }

  private final Random random;
  private int number;

  RandomOutline(long seed) {
    random = new Random(seed);
  }

  Planned tree(int depth) {
    Planned member = new Planned();
    number++;
    // Every ninth name is in use already, if it was not one of these itself.
    member.name = number % 9 == 0 ? "m" + (number - 4) + "x" : "m" + number + "x" + text(10);
    if (number % 9 != 0 && random.nextInt(3) == 0) {
      member.name = "m" + number + "x";
    }
    member.codes = random.nextBoolean() ? null : new short[] {
      code(6), code(3), code(4), code(4), (short) (random.nextBoolean() ? 0 : 3)};
    member.twoPass = random.nextBoolean() ? null : random.nextBoolean();
    member.expense = random.nextBoolean() ? null : random.nextBoolean();
    member.currencyMember = random.nextInt(3) > 0 ? null : text(12);
    member.comment = random.nextInt(3) > 0 ? null : text(40);
    member.formula = random.nextInt(3) > 0 ? null : text(300) + ";";
    for (int i = 0; i < TABLES.length; i++) {
      member.aliases[i] = random.nextInt(3) > 0 ? null : "alias " + i + " " + number + text(5);
    }
    for (int i = random.nextInt(4); i > 0; i--) {
      member.udas.add("uda " + i + text(5));
    }
    int children = depth == 0 ? 0 : random.nextInt(6);
    for (int i = 0; i < children; i++) {
      member.children.add(tree(depth - 1));
    }
    return member;
  }

  private short code(int limit) {
    return (short) random.nextInt(limit);
  }

  private String text(int limit) {
    StringBuilder text = new StringBuilder();
    for (int i = random.nextInt(limit); i > 0; i--) {
      text.append(LETTERS[random.nextInt(LETTERS.length)]);
    }
    return text.toString();
  }

  static NewMember plan(Planned planned) {
    Changes changes = new Changes();
    if (planned.codes != null) {
      changes.consolidationCode(planned.codes[0]).conversionCode(planned.codes[1])
          .timeBalanceCode(planned.codes[2]).timeBalanceSkipCode(planned.codes[3])
          .shareCode(planned.codes[4]);
    }
    if (planned.twoPass != null) {
      changes.twoPass(planned.twoPass);
    }
    if (planned.expense != null) {
      changes.expense(planned.expense);
    }
    if (planned.currencyMember != null) {
      changes.currencyMember(planned.currencyMember);
    }
    if (planned.comment != null) {
      changes.comment(planned.comment);
    }
    if (planned.formula != null) {
      changes.formula(planned.formula);
    }
    for (int i = 0; i < TABLES.length; i++) {
      if (planned.aliases[i] != null) {
        changes.alias(TABLES[i], planned.aliases[i]);
      }
    }
    planned.udas.forEach(changes::uda);
    NewMember member = new NewMember(planned.name, changes);
    for (Planned child : planned.children) {
      member.add(plan(child));
    }
    return member;
  }

  /** Makes a member and those below it by the native methods; gives its handle. */
  static int make(Access access, int parent, int sibling, Planned planned) {
    InstanceHandle instance = access.login.instance;
    OutlineHandle outline = access.handle;
    List<DefaultMember> created = new ArrayList<>();
    check("create", OutlineJni.createMember(
        instance, outline, parent, sibling, planned.name, created));
    int member = created.get(0).getHandle();
    if (planned.codes != null) {
      check("consolidation", OutlineJni.assignMemberConsolidation(
          instance, outline, member, new Consolidation(planned.codes[0])));
      check("conversion", OutlineJni.assignMemberConversion(
          instance, outline, member, new CurrencyConversion(planned.codes[1])));
      check("balance", OutlineJni.assignMemberTimeBalance(
          instance, outline, member, new TimeBalance(planned.codes[2])));
      check("skip", OutlineJni.assignMemberTimeBalanceSkip(
          instance, outline, member, new TimeBalanceSkip(planned.codes[3])));
      check("share", OutlineJni.assignMemberShare(
          instance, outline, member, new Share(planned.codes[4])));
    }
    if (planned.twoPass != null) {
      check("two", OutlineJni.assignMemberTwoPass(instance, outline, member, planned.twoPass));
    }
    if (planned.expense != null) {
      check("expense",
          OutlineJni.assignMemberVariance(instance, outline, member, planned.expense));
    }
    if (planned.currencyMember != null) {
      check("currency", OutlineJni.assignMemberCategory(
          instance, outline, member, planned.currencyMember));
    }
    if (planned.comment != null) {
      check("comment", OutlineJni.assignMemberComment(instance, outline, member, planned.comment));
    }
    if (planned.formula != null) {
      check("formula", OutlineJni.updateMemberFormula(instance, outline, member, planned.formula));
    }
    for (int i = 0; i < TABLES.length; i++) {
      if (planned.aliases[i] != null) {
        check("alias", OutlineJni.assignMemberAlias(
            instance, outline, member, TABLES[i], planned.aliases[i]));
      }
    }
    for (String uda : planned.udas) {
      check("uda", OutlineJni.setMemberUDA(instance, outline, member, uda));
    }
    int previous = 0;
    for (Planned child : planned.children) {
      previous = make(access, member, previous, child);
    }
    return member;
  }
}
