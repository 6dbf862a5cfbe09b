package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/**
 * A member of an outline as it was when it was read: an immutable value that holds on to nothing.
 * It stays readable after the outline was edited or closed; read it anew with {@link
 * Outline#read} to see what became of it. Two members are equal when they have one handle, which
 * only makes sense within one outline.
 *
 * <p>What was not asked for in the {@link Details} is an {@link IllegalStateException} to ask for.
 */
public final class Member {
  private final int handle;
  private final int dimensionHandle;
  private final int childCount;
  private final int flags;
  private final short[] codes;
  private final String name;
  private final String dimension;
  private final String currencyMember;
  private final String comment;
  private final Details details;
  private final int parent;
  private final int previous;
  // Null where they were not asked for.
  private final String extendedComment;
  private final String formula;
  private final List<String> aliases;
  private final List<String> udas;
  private final List<Attribute> attributes;

  /** Takes the record that a reader stands at. */
  Member(RecordReader in, Details details) {
    handle = in.fixed(OutlineBulk.READ_HANDLE);
    dimensionHandle = in.fixed(OutlineBulk.READ_DIMENSION);
    parent = in.fixed(OutlineBulk.READ_PARENT);
    previous = in.fixed(OutlineBulk.READ_PREVIOUS);
    childCount = in.fixed(OutlineBulk.READ_CHILD_COUNT);
    flags = in.fixed(OutlineBulk.READ_FLAGS);
    codes = in.codes();
    name = in.text();
    dimension = in.dimensionName();
    currencyMember = in.text();
    comment = in.text();
    this.details = details;
    extendedComment = details.has(OutlineBulk.DETAIL_EXTENDED_COMMENT) ? in.text() : null;
    formula = details.has(OutlineBulk.DETAIL_FORMULA) ? in.text() : null;
    aliases = details.has(OutlineBulk.DETAIL_ALIASES)
        ? readTexts(in, details.aliasTables().size()) : null;
    udas = details.has(OutlineBulk.DETAIL_UDAS) ? readTexts(in, in.number()) : null;
    attributes = details.has(OutlineBulk.DETAIL_ATTRIBUTES) ? readAttributes(in) : null;
  }

  private static List<String> readTexts(RecordReader in, int count) {
    String[] read = new String[count];
    for (int i = 0; i < count; i++) {
      read[i] = in.text();
    }
    return Collections.unmodifiableList(Arrays.asList(read));
  }

  private static List<Attribute> readAttributes(RecordReader in) {
    Attribute[] read = new Attribute[in.number()];
    for (int i = 0; i < read.length; i++) {
      read[i] = new Attribute(in.number(), in.text(), in.text());
    }
    return Collections.unmodifiableList(Arrays.asList(read));
  }

  /** Gives what belongs to a detail, if that was asked for. */
  private <T> T asked(int detail, String what, T value) {
    if (!details.has(detail)) {
      throw new IllegalStateException(
          "The " + what + " of " + name + " was not read; ask for it with Details");
    }
    return value;
  }

  private boolean flag(int flag) {
    return (flags & flag) != 0;
  }

  /** {@return the handle, valid until the member is deleted or the outline closed} */
  public int handle() {
    return handle;
  }

  /** {@return the name} */
  public String name() {
    return name;
  }

  /** {@return the name of the dimension} */
  public String dimension() {
    return dimension;
  }

  /** {@return the handle of the dimension} */
  public int dimensionHandle() {
    return dimensionHandle;
  }

  /** {@return the number of children} */
  public long childCount() {
    return Integer.toUnsignedLong(childCount);
  }

  /** {@return whether it has children} */
  public boolean hasChildren() {
    return childCount != 0;
  }

  /** {@return the distance to its furthest leaf, 0 for a leaf} */
  public int level() {
    return codes[OutlineBulk.CODE_LEVEL];
  }

  /** {@return the distance to the root, 1 for a dimension} */
  public int generation() {
    return codes[OutlineBulk.CODE_GENERATION];
  }

  /** {@return whether it is a dimension} */
  public boolean isDimension() {
    return generation() == 1;
  }

  /** {@return how it is consolidated} */
  public Consolidation consolidation() {
    return Consolidation.of(consolidationCode());
  }

  /** {@return the number of {@link #consolidation}} */
  public short consolidationCode() {
    return codes[OutlineBulk.CODE_CONSOLIDATION];
  }

  /** {@return how its data is stored} */
  public Share share() {
    return Share.of(shareCode());
  }

  /** {@return the number of {@link #share}} */
  public short shareCode() {
    return codes[OutlineBulk.CODE_SHARE];
  }

  /** {@return its time balance} */
  public TimeBalance timeBalance() {
    return TimeBalance.of(timeBalanceCode());
  }

  /** {@return the number of {@link #timeBalance}} */
  public short timeBalanceCode() {
    return codes[OutlineBulk.CODE_TIME_BALANCE];
  }

  /** {@return what its time balance passes over} */
  public TimeBalanceSkip timeBalanceSkip() {
    return TimeBalanceSkip.of(timeBalanceSkipCode());
  }

  /** {@return the number of {@link #timeBalanceSkip}} */
  public short timeBalanceSkipCode() {
    return codes[OutlineBulk.CODE_TIME_BALANCE_SKIP];
  }

  /** {@return its currency conversion} */
  public CurrencyConversion conversion() {
    return CurrencyConversion.of(conversionCode());
  }

  /** {@return the number of {@link #conversion}} */
  public short conversionCode() {
    return codes[OutlineBulk.CODE_CONVERSION];
  }

  /** {@return the category of its dimension} */
  public DimensionCategory category() {
    return DimensionCategory.of(categoryCode());
  }

  /** {@return the number of {@link #category}} */
  public short categoryCode() {
    return codes[OutlineBulk.CODE_CATEGORY];
  }

  /** {@return the storage type of a dimension, 1 for a regular one; 0 for other members} */
  public short storageTypeCode() {
    return codes[OutlineBulk.CODE_STORAGE_TYPE];
  }

  /** {@return the type of an attribute dimension or member, 0 for others} */
  public short attributeTypeCode() {
    return codes[OutlineBulk.CODE_ATTRIBUTE_TYPE];
  }

  /** {@return whether it is calculated in two passes} */
  public boolean isTwoPass() {
    return flag(OutlineBulk.FLAG_TWO_PASS);
  }

  /** {@return whether variance is reported as for an expense} */
  public boolean isExpense() {
    return flag(OutlineBulk.FLAG_EXPENSE);
  }

  /** {@return whether it has attribute members, or as a dimension attribute dimensions} */
  public boolean isAttributed() {
    return flag(OutlineBulk.FLAG_ATTRIBUTED);
  }

  /** {@return whether a dimension has hybrid members, or a leaf is one} */
  public boolean hasHybridDescendants() {
    return flag(OutlineBulk.FLAG_HYBRID_DESCENDANTS);
  }

  /** {@return whether hybrid analysis is enabled for the dimension} */
  public boolean isHybridAnalysisEnabled() {
    return flag(OutlineBulk.FLAG_HYBRID_ENABLED);
  }

  /** {@return the currency member} */
  public String currencyMember() {
    return currencyMember;
  }

  /** {@return the comment} */
  public String comment() {
    return comment;
  }

  /** {@return the handle of the parent, 0 for a dimension} */
  public int parentHandle() {
    return asked(OutlineBulk.DETAIL_PLACE, "place", parent);
  }

  /** {@return the handle of the previous sibling, 0 for a first one} */
  public int previousHandle() {
    return asked(OutlineBulk.DETAIL_PLACE, "place", previous);
  }

  /** {@return the extended comment} */
  public String extendedComment() {
    return asked(OutlineBulk.DETAIL_EXTENDED_COMMENT, "extended comment", extendedComment);
  }

  /** {@return the formula} */
  public String formula() {
    return asked(OutlineBulk.DETAIL_FORMULA, "formula", formula);
  }

  /**
   * Returns an alias.
   *
   * @param table the name of the alias table
   * @return the alias, empty where there is none
   */
  public String alias(String table) {
    int index = details.aliasTables().indexOf(table);
    if (index < 0) {
      throw new IllegalStateException(
          "The aliases in " + table + " were not read; ask for them with Details");
    }
    return aliases.get(index);
  }

  /** {@return the user-defined attributes, an unmodifiable list} */
  public List<String> udas() {
    return asked(OutlineBulk.DETAIL_UDAS, "list of user-defined attributes", udas);
  }

  /** {@return the associated attribute members, an unmodifiable list} */
  public List<Attribute> attributes() {
    return asked(OutlineBulk.DETAIL_ATTRIBUTES, "list of attribute members", attributes);
  }

  /** {@return what was asked for when it was read} */
  public Details details() {
    return details;
  }

  @Override
  public boolean equals(Object other) {
    return other instanceof Member && ((Member) other).handle == handle;
  }

  @Override
  public int hashCode() {
    return handle;
  }

  @Override
  public String toString() {
    return name;
  }
}
