package com.olvane.kep.olvane.defs;

import com.olvane.kep.olvane.defs.outline.AttributeType;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.CurrencyConversion;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.DimensionStorageType;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.defs.outline.TimeBalance;
import com.olvane.kep.olvane.defs.outline.TimeBalanceSkip;
import java.util.Hashtable;

/** Everything that a listing with properties tells of one member. */
public final class OutlineMemberProperties {
  private String name;
  private short level;
  private short generation;
  private short consolidation;
  private boolean twoPass;
  private boolean expense;
  private short conversion;
  private String currencyMember;
  private short timeBalance;
  private short skip;
  private short share;
  private short storage;
  private short category;
  private short storageCategory;
  private String comment;
  private long childCount;
  private String dimension;
  private boolean attributes;
  private short attributeType;
  private String alias;
  private final Hashtable<String, String> attributeTable = new Hashtable<>();

  /** Creates an empty object. */
  public OutlineMemberProperties() {}

  /** {@return the name of the member} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the member.
   *
   * @param name the name of the member
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the level, 0 for a member without children} */
  public short getLevel() {
    return level;
  }

  /**
   * Sets the level, 0 for a member without children.
   *
   * @param level the level
   */
  public void setLevel(short level) {
    this.level = level;
  }

  /** {@return the generation, 1 for a dimension} */
  public short getGeneration() {
    return generation;
  }

  /**
   * Sets the generation, 1 for a dimension.
   *
   * @param generation the generation
   */
  public void setGeneration(short generation) {
    this.generation = generation;
  }

  /** {@return the {@link Consolidation} code} */
  public short getConsolidation() {
    return consolidation;
  }

  /**
   * Sets the {@link Consolidation} code.
   *
   * @param consolidation the code
   */
  public void setConsolidation(short consolidation) {
    this.consolidation = consolidation;
  }

  /** {@return whether the member is calculated in two passes} */
  public boolean isTwoPass() {
    return twoPass;
  }

  /**
   * Sets whether the member is calculated in two passes.
   *
   * @param twoPass true if so
   */
  public void setTwoPass(boolean twoPass) {
    this.twoPass = twoPass;
  }

  /** {@return whether the member is an expense in variance reports} */
  public boolean isExpense() {
    return expense;
  }

  /**
   * Sets whether the member is an expense in variance reports.
   *
   * @param expense true if so
   */
  public void setExpense(boolean expense) {
    this.expense = expense;
  }

  /** {@return the {@link CurrencyConversion} code} */
  public short getConversion() {
    return conversion;
  }

  /**
   * Sets the {@link CurrencyConversion} code.
   *
   * @param conversion the code
   */
  public void setConversion(short conversion) {
    this.conversion = conversion;
  }

  /** {@return the currency conversion member or category} */
  public String getCurrencyMember() {
    return currencyMember;
  }

  /**
   * Sets the currency conversion member or category.
   *
   * @param currencyMember the currency conversion member or category
   */
  public void setCurrencyMember(String currencyMember) {
    this.currencyMember = currencyMember;
  }

  /** {@return the {@link TimeBalance} code} */
  public short getTimeBalance() {
    return timeBalance;
  }

  /**
   * Sets the {@link TimeBalance} code.
   *
   * @param timeBalance the code
   */
  public void setTimeBalance(short timeBalance) {
    this.timeBalance = timeBalance;
  }

  /** {@return the {@link TimeBalanceSkip} code} */
  public short getSkip() {
    return skip;
  }

  /**
   * Sets the {@link TimeBalanceSkip} code.
   *
   * @param skip the code
   */
  public void setSkip(short skip) {
    this.skip = skip;
  }

  /** {@return the {@link Share} code} */
  public short getShare() {
    return share;
  }

  /**
   * Sets the {@link Share} code.
   *
   * @param share the code
   */
  public void setShare(short share) {
    this.share = share;
  }

  /** {@return the {@link DimensionStorageType} code; meaningful for a dimension} */
  public short getStorage() {
    return storage;
  }

  /**
   * Sets the {@link DimensionStorageType} code.
   *
   * @param storage the storage type code
   */
  public void setStorage(short storage) {
    this.storage = storage;
  }

  /** {@return the {@link DimensionCategory} code} */
  public short getCategory() {
    return category;
  }

  /**
   * Sets the {@link DimensionCategory} code.
   *
   * @param category the code
   */
  public void setCategory(short category) {
    this.category = category;
  }

  /** {@return the storage category code} */
  public short getStorageCategory() {
    return storageCategory;
  }

  /**
   * Sets the storage category code.
   *
   * @param storageCategory the storage category code
   */
  public void setStorageCategory(short storageCategory) {
    this.storageCategory = storageCategory;
  }

  /** {@return the comment} */
  public String getComment() {
    return comment;
  }

  /**
   * Sets the comment.
   *
   * @param comment the comment
   */
  public void setComment(String comment) {
    this.comment = comment;
  }

  /** {@return the number of children} */
  public long getChildCount() {
    return childCount;
  }

  /**
   * Sets the number of children.
   *
   * @param childCount the number of children
   */
  public void setChildCount(long childCount) {
    this.childCount = childCount;
  }

  /** {@return the name of the dimension of the member} */
  public String getDimension() {
    return dimension;
  }

  /**
   * Sets the name of the dimension of the member.
   *
   * @param dimension the name of the dimension of the member
   */
  public void setDimension(String dimension) {
    this.dimension = dimension;
  }

  /** {@return whether the member carries attribute associations} */
  public boolean hasAttributes() {
    return attributes;
  }

  /**
   * Sets whether the member carries attribute associations.
   *
   * @param attributes true if so
   */
  public void setAttributes(boolean attributes) {
    this.attributes = attributes;
  }

  /** {@return the {@link AttributeType} code; meaningful in attribute dimensions} */
  public short getAttributeType() {
    return attributeType;
  }

  /**
   * Sets the {@link AttributeType} code.
   *
   * @param attributeType the attribute type code
   */
  public void setAttributeType(short attributeType) {
    this.attributeType = attributeType;
  }

  /** {@return the alias in the default alias table, or null if there is none} */
  public String getAlias() {
    return alias;
  }

  /**
   * Sets the alias in the default alias table, or null if there is none.
   *
   * @param alias the alias
   */
  public void setAlias(String alias) {
    this.alias = alias;
  }

  /**
   * Returns the associated attribute members: attribute dimension name to attribute member name.
   *
   * @return the live table, which the listing fills
   */
  public Hashtable<String, String> getAttributeTable() {
    return attributeTable;
  }

  @Override
  public String toString() {
    return "OutlineMemberProperties[name=" + name + ", alias=" + alias + ", level=" + level
        + ", generation=" + generation + ", childCount=" + childCount
        + ", attributes=" + attributeTable + "]";
  }
}
