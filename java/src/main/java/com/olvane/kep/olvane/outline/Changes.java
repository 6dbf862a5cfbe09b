package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * What a new member is to have or an existing one is to be given. What is not set stays as it is.
 * The methods change this object and return it. Texts that do not fit are refused when they are
 * set.
 */
public final class Changes {
  private final short[] codes = new short[OutlineBulk.CODE_COUNT];
  private int given;
  private int flags;
  private String currencyMember;
  private String comment;
  private String extendedComment;
  private String formula;
  private final Map<String, String> aliases = new LinkedHashMap<>();
  private final List<String> udas = new ArrayList<>();
  private final List<String> attributes = new ArrayList<>();
  final List<String> removedUdas = new ArrayList<>();
  final List<String> removedAttributes = new ArrayList<>();

  /** Creates an object that sets nothing. */
  public Changes() {}

  /**
   * Takes over everything that can be set from a member: properties, and the details that were
   * read of it.
   *
   * @param member the member
   * @return what makes another member like it
   */
  public static Changes like(Member member) {
    Changes changes =
        new Changes()
            .consolidationCode(member.consolidationCode())
            .conversionCode(member.conversionCode())
            .timeBalanceCode(member.timeBalanceCode())
            .timeBalanceSkipCode(member.timeBalanceSkipCode())
            .shareCode(member.shareCode())
            .twoPass(member.isTwoPass())
            .expense(member.isExpense())
            .currencyMember(member.currencyMember())
            .comment(member.comment());
    Details details = member.details();
    if (details.has(OutlineBulk.DETAIL_EXTENDED_COMMENT) && !member.extendedComment().isEmpty()) {
      changes.extendedComment(member.extendedComment());
    }
    if (details.has(OutlineBulk.DETAIL_FORMULA) && !member.formula().isEmpty()) {
      changes.formula(member.formula());
    }
    for (String table : details.aliasTables()) {
      if (!member.alias(table).isEmpty()) {
        changes.alias(table, member.alias(table));
      }
    }
    if (details.has(OutlineBulk.DETAIL_UDAS)) {
      changes.udas.addAll(member.udas());
    }
    if (details.has(OutlineBulk.DETAIL_ATTRIBUTES)) {
      member.attributes().forEach(attribute -> changes.attribute(attribute.name()));
    }
    return changes;
  }

  private Changes code(int index, Code code) {
    if (code.code() < 0) {
      throw new IllegalArgumentException(
          code + " has no number; give the number with the method that ends in Code");
    }
    return code(index, code.code());
  }

  private Changes code(int index, short code) {
    codes[index] = code;
    given |= OutlineBulk.GIVEN_CODE << index;
    return this;
  }

  private Changes flag(int given, int flag, boolean value) {
    this.given |= given;
    flags = value ? flags | flag : flags & ~flag;
    return this;
  }

  /**
   * Sets how a member is consolidated.
   *
   * @param value any constant but {@code OTHER}
   * @return this
   */
  public Changes consolidation(Consolidation value) {
    return code(OutlineBulk.CODE_CONSOLIDATION, value);
  }

  /**
   * Sets the number of how a member is consolidated.
   *
   * @param code the number as the outline keeps it
   * @return this
   */
  public Changes consolidationCode(short code) {
    return code(OutlineBulk.CODE_CONSOLIDATION, code);
  }

  /**
   * Sets the currency conversion.
   *
   * @param value any constant but {@code OTHER}
   * @return this
   */
  public Changes conversion(CurrencyConversion value) {
    return code(OutlineBulk.CODE_CONVERSION, value);
  }

  /**
   * Sets the number of the currency conversion.
   *
   * @param code the number as the outline keeps it
   * @return this
   */
  public Changes conversionCode(short code) {
    return code(OutlineBulk.CODE_CONVERSION, code);
  }

  /**
   * Sets the time balance.
   *
   * @param value any constant but {@code OTHER}
   * @return this
   */
  public Changes timeBalance(TimeBalance value) {
    return code(OutlineBulk.CODE_TIME_BALANCE, value);
  }

  /**
   * Sets the number of the time balance.
   *
   * @param code the number as the outline keeps it
   * @return this
   */
  public Changes timeBalanceCode(short code) {
    return code(OutlineBulk.CODE_TIME_BALANCE, code);
  }

  /**
   * Sets what the time balance passes over.
   *
   * @param value any constant but {@code OTHER}
   * @return this
   */
  public Changes timeBalanceSkip(TimeBalanceSkip value) {
    return code(OutlineBulk.CODE_TIME_BALANCE_SKIP, value);
  }

  /**
   * Sets the number of what the time balance passes over.
   *
   * @param code the number as the outline keeps it
   * @return this
   */
  public Changes timeBalanceSkipCode(short code) {
    return code(OutlineBulk.CODE_TIME_BALANCE_SKIP, code);
  }

  /**
   * Sets how the data is stored.
   *
   * @param value any constant but {@code OTHER}
   * @return this
   */
  public Changes share(Share value) {
    return code(OutlineBulk.CODE_SHARE, value);
  }

  /**
   * Sets the number of how the data is stored.
   *
   * @param code the number as the outline keeps it
   * @return this
   */
  public Changes shareCode(short code) {
    return code(OutlineBulk.CODE_SHARE, code);
  }

  /**
   * Sets whether the member is calculated in two passes.
   *
   * @param value true if so
   * @return this
   */
  public Changes twoPass(boolean value) {
    return flag(OutlineBulk.GIVEN_TWO_PASS, OutlineBulk.FLAG_TWO_PASS, value);
  }

  /**
   * Sets whether variance is reported as for an expense.
   *
   * @param value true if so
   * @return this
   */
  public Changes expense(boolean value) {
    return flag(OutlineBulk.GIVEN_EXPENSE, OutlineBulk.FLAG_EXPENSE, value);
  }

  /**
   * Sets the currency member.
   *
   * @param name its name, at most 80 bytes; empty for none
   * @return this
   */
  public Changes currencyMember(String name) {
    currencyMember = Texts.fitting("", "currency member", name, Texts.NAME);
    return this;
  }

  /**
   * Sets the comment.
   *
   * @param text the comment, at most 257 bytes; empty for none
   * @return this
   */
  public Changes comment(String text) {
    comment = Texts.fitting("", "comment", text, Texts.COMMENT);
    return this;
  }

  /**
   * Sets the extended comment.
   *
   * @param text the comment, empty for none
   * @return this
   */
  public Changes extendedComment(String text) {
    extendedComment = Texts.fitting("", "extended comment", text, Integer.MAX_VALUE);
    return this;
  }

  /**
   * Sets the formula.
   *
   * @param text the formula, empty for none
   * @return this
   */
  public Changes formula(String text) {
    formula = Texts.fitting("", "formula", text, Integer.MAX_VALUE);
    return this;
  }

  /**
   * Sets an alias.
   *
   * @param table the name of the alias table
   * @param alias the alias, empty for none; the outline API tells how long it may be
   * @return this
   */
  public Changes alias(String table, String alias) {
    aliases.put(Texts.aliasTable(table), Texts.fitting("", "alias", alias, Integer.MAX_VALUE));
    return this;
  }

  /**
   * Adds a user-defined attribute.
   *
   * @param uda the attribute, at most 80 bytes
   * @return this
   */
  public Changes uda(String uda) {
    udas.add(Texts.given("", "user-defined attribute", uda, Texts.UDA));
    return this;
  }

  /**
   * Removes a user-defined attribute of an existing member.
   *
   * @param uda the attribute
   * @return this
   */
  public Changes withoutUda(String uda) {
    removedUdas.add(Texts.given("", "user-defined attribute", uda, Texts.UDA));
    return this;
  }

  /**
   * Associates the member with an attribute member.
   *
   * @param name the name of the attribute member
   * @return this
   */
  public Changes attribute(String name) {
    attributes.add(Texts.given("", "name of an attribute member", name, Texts.NAME));
    return this;
  }

  /**
   * Removes the association of an existing member with an attribute member.
   *
   * @param name the name of the attribute member
   * @return this
   */
  public Changes withoutAttribute(String name) {
    removedAttributes.add(Texts.given("", "name of an attribute member", name, Texts.NAME));
    return this;
  }

  /** Adds the names of the alias tables that are used here. */
  void addTables(List<String> tables) {
    for (String table : aliases.keySet()) {
      if (!tables.contains(table)) {
        tables.add(table);
      }
    }
  }

  /** Writes a record; {@code name} is null for an existing member. Where it begins. */
  int write(BulkCall call, String name, List<String> tables) {
    int record = call.gap(OutlineBulk.MAKE_FIXED);
    if (given != 0) {
      call.put(record + OutlineBulk.MAKE_GIVEN, given);
      call.put(record + OutlineBulk.MAKE_FLAGS, flags);
      for (int code = OutlineBulk.CODE_CONSOLIDATION; code <= OutlineBulk.CODE_SHARE; code++) {
        int at = record + OutlineBulk.MAKE_CODES + 2 * (code - OutlineBulk.CODE_CONSOLIDATION);
        call.put16(at, codes[code]);
      }
    }
    call.text(name);
    call.text(currencyMember);
    call.text(comment);
    call.text(extendedComment);
    call.text(formula);
    call.number(aliases.size());
    for (Map.Entry<String, String> alias : aliases.entrySet()) {
      call.number(tables.indexOf(alias.getKey()));
      call.text(alias.getValue());
    }
    call.texts(udas);
    call.texts(attributes);
    call.put(record + OutlineBulk.MAKE_LENGTH, call.size() - record);
    return record;
  }

  int given() {
    return given;
  }
}
