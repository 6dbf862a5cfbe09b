package com.olvane.kep.olvane.defs.outline;

/**
 * A member of an outline with all of its properties.
 *
 * <p>Setters refuse values that an outline cannot keep with {@link IllegalArgumentException}. While
 * exceptions are held (see {@link #setHoldExceptions}) a refused value is stored all the same and
 * the exception is collected instead: what the outline already contains can always be shown, and
 * {@link #getHeldExceptions} tells what is wrong with it. A property that a listing leaves out
 * keeps its default: 0, false, null, and 1 for the generation.
 */
public final class DefaultMember extends HoldingBean implements MemberReference, FormulaHolder {
  /** The longest member name, in bytes of its encoded form. */
  public static final int MAX_NAME_BYTES = 80;

  /** The longest comment, in bytes of its encoded form. */
  public static final int MAX_COMMENT_BYTES = 257;

  private int handle;
  private String name;
  private String dimensionName;
  private int dimensionHandle;
  private short level;
  private short generation = 1;
  private short consolidation;
  private boolean twoPassCalculation;
  private short currencyConversionType;
  private boolean expenseMember;
  private String currencyMember;
  private short timeBalanceOption;
  private short timeBalanceSkipOption;
  private short share;
  private short dimensionStorageType;
  private short dimensionCategory;
  private String comment;
  private long childCount;
  private short attributeType;
  private boolean hybridDescendants;
  private boolean hybridAnalysisEnabled;
  private boolean attributed;
  private String formula;

  /** Creates a member with default properties. */
  public DefaultMember() {}

  /** {@return the handle of the member in its open outline, or 0} */
  @Override
  public int getHandle() {
    return handle;
  }

  /**
   * Sets the handle of the member in its open outline, or 0.
   *
   * @param handle the handle
   */
  public void setHandle(int handle) {
    this.handle = handle;
  }

  /** {@return the name of the member} */
  @Override
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the member.
   *
   * @param name the name of the member
   * @throws IllegalArgumentException if it is longer than the outline can keep and exceptions are
   *     not held
   */
  public void setName(String name) {
    checkLength(name, MAX_NAME_BYTES, "member name");
    this.name = name;
  }

  /** {@return the name of the dimension of the member} */
  public String getDimensionName() {
    return dimensionName;
  }

  /**
   * Sets the name of the dimension of the member.
   *
   * @param dimensionName the name of the dimension of the member
   */
  public void setDimensionName(String dimensionName) {
    this.dimensionName = dimensionName;
  }

  /** {@return the handle of the dimension of the member, or 0} */
  public int getDimensionHandle() {
    return dimensionHandle;
  }

  /**
   * Sets the handle of the dimension of the member, or 0.
   *
   * @param dimensionHandle the handle
   */
  public void setDimensionHandle(int dimensionHandle) {
    this.dimensionHandle = dimensionHandle;
  }

  /** {@return the level, 0 for a member without children} */
  public short getLevel() {
    return level;
  }

  /**
   * Sets the level, 0 for a member without children.
   *
   * @param level the level
   * @throws IllegalArgumentException if it is negative and exceptions are not held
   */
  public void setLevel(short level) {
    checkNotNegative(level, "level");
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
   * @throws IllegalArgumentException if it is negative and exceptions are not held
   */
  public void setGeneration(short generation) {
    checkNotNegative(generation, "generation");
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
  public boolean isTwoPassCalculation() {
    return twoPassCalculation;
  }

  /**
   * Sets whether the member is calculated in two passes.
   *
   * @param twoPassCalculation true if so
   */
  public void setTwoPassCalculation(boolean twoPassCalculation) {
    this.twoPassCalculation = twoPassCalculation;
  }

  /** {@return the {@link CurrencyConversion} code} */
  public short getCurrencyConversionType() {
    return currencyConversionType;
  }

  /**
   * Sets the {@link CurrencyConversion} code.
   *
   * @param currencyConversionType the code
   */
  public void setCurrencyConversionType(short currencyConversionType) {
    this.currencyConversionType = currencyConversionType;
  }

  /** {@return whether the member is an expense in variance reports} */
  public boolean isExpenseMember() {
    return expenseMember;
  }

  /**
   * Sets whether the member is an expense in variance reports.
   *
   * @param expenseMember true if so
   */
  public void setExpenseMember(boolean expenseMember) {
    this.expenseMember = expenseMember;
  }

  /** {@return the currency conversion member or category} */
  public String getCurrencyMember() {
    return currencyMember;
  }

  /**
   * Sets the currency conversion member or category.
   *
   * @param currencyMember the currency conversion member or category
   * @throws IllegalArgumentException if it is longer than the outline can keep and exceptions are
   *     not held
   */
  public void setCurrencyMember(String currencyMember) {
    checkLength(currencyMember, MAX_NAME_BYTES, "currency member");
    this.currencyMember = currencyMember;
  }

  /** {@return the {@link TimeBalance} code} */
  public short getTimeBalanceOption() {
    return timeBalanceOption;
  }

  /**
   * Sets the {@link TimeBalance} code.
   *
   * @param timeBalanceOption the code
   */
  public void setTimeBalanceOption(short timeBalanceOption) {
    this.timeBalanceOption = timeBalanceOption;
  }

  /** {@return the {@link TimeBalanceSkip} code} */
  public short getTimeBalanceSkipOption() {
    return timeBalanceSkipOption;
  }

  /**
   * Sets the {@link TimeBalanceSkip} code.
   *
   * @param timeBalanceSkipOption the code
   */
  public void setTimeBalanceSkipOption(short timeBalanceSkipOption) {
    this.timeBalanceSkipOption = timeBalanceSkipOption;
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

  /** {@return the {@link DimensionStorageType} code; set for dimensions only} */
  public short getDimensionStorageType() {
    return dimensionStorageType;
  }

  /**
   * Sets the {@link DimensionStorageType} code.
   *
   * @param dimensionStorageType the code
   */
  public void setDimensionStorageType(short dimensionStorageType) {
    this.dimensionStorageType = dimensionStorageType;
  }

  /** {@return the {@link DimensionCategory} code} */
  public short getDimensionCategory() {
    return dimensionCategory;
  }

  /**
   * Sets the {@link DimensionCategory} code.
   *
   * @param dimensionCategory the code
   */
  public void setDimensionCategory(short dimensionCategory) {
    this.dimensionCategory = dimensionCategory;
  }

  /** {@return the comment} */
  public String getComment() {
    return comment;
  }

  /**
   * Sets the comment.
   *
   * @param comment the comment
   * @throws IllegalArgumentException if it is longer than the outline can keep and exceptions are
   *     not held
   */
  public void setComment(String comment) {
    checkLength(comment, MAX_COMMENT_BYTES, "comment");
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
   * @throws IllegalArgumentException if it is negative and exceptions are not held
   */
  public void setChildCount(long childCount) {
    checkNotNegative(childCount, "child count");
    this.childCount = childCount;
  }

  /** {@return the {@link AttributeType} code} */
  public short getAttributeType() {
    return attributeType;
  }

  /**
   * Sets the {@link AttributeType} code.
   *
   * @param attributeType the code
   */
  public void setAttributeType(short attributeType) {
    this.attributeType = attributeType;
  }

  /** {@return whether hybrid members stand below this one or it is one itself} */
  public boolean hasHybridDescendants() {
    return hybridDescendants;
  }

  /**
   * Sets whether hybrid members stand below this one or it is one itself.
   *
   * @param hybridDescendants true if so
   */
  public void setHasHybridDescendants(boolean hybridDescendants) {
    this.hybridDescendants = hybridDescendants;
  }

  /** {@return whether hybrid analysis is enabled for this dimension} */
  public boolean isHybridAnalysisEnabled() {
    return hybridAnalysisEnabled;
  }

  /**
   * Sets whether hybrid analysis is enabled for this dimension.
   *
   * @param hybridAnalysisEnabled true if so
   */
  public void setHybridAnalysisEnabled(boolean hybridAnalysisEnabled) {
    this.hybridAnalysisEnabled = hybridAnalysisEnabled;
  }

  /**
   * {@return whether the member carries attribute associations; set by the {@code Ex} listings
   * only}
   */
  public boolean isAttributed() {
    return attributed;
  }

  /**
   * Sets whether the member carries attribute associations.
   *
   * @param attributed true if so
   */
  public void setAttributed(boolean attributed) {
    this.attributed = attributed;
  }

  /** {@return the formula, or null if none was asked for or the member has none} */
  public String getFormula() {
    return formula;
  }

  /**
   * Sets the formula, or null if none was asked for or the member has none.
   *
   * @param formula the formula
   */
  @Override
  public void setFormula(String formula) {
    this.formula = formula;
  }

  @Override
  public String toString() {
    return "DefaultMember[name=" + name + ", handle=" + handle + ", dimension=" + dimensionName
        + ", level=" + level + ", generation=" + generation
        + ", childCount=" + childCount + "]";
  }
}
