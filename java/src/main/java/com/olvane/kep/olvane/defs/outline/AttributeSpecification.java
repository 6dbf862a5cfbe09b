package com.olvane.kep.olvane.defs.outline;

/** How attribute members are named and calculated, as plain values. */
public final class AttributeSpecification {
  private short useNameOf;
  private short genNameBy;
  private short nameDelimiter;
  private String calcDimensionName;
  private String calcSumName;
  private String calcCountName;
  private String calcAverageName;
  private String calcMinimumName;
  private String calcMaximumName;
  private String booleanNameTrue;
  private String booleanNameFalse;
  private short dateMemberName;
  private short numericBound;

  /** Creates an empty object. */
  public AttributeSpecification() {}

  /** {@return the {@link LongNameSource} code} */
  public short getUseNameOf() {
    return useNameOf;
  }

  /**
   * Sets the {@link LongNameSource} code.
   *
   * @param useNameOf the code
   */
  public void setUseNameOf(short useNameOf) {
    this.useNameOf = useNameOf;
  }

  /** {@return the {@link LongNameConstructor} code} */
  public short getGenNameBy() {
    return genNameBy;
  }

  /**
   * Sets the {@link LongNameConstructor} code.
   *
   * @param genNameBy the code
   */
  public void setGenNameBy(short genNameBy) {
    this.genNameBy = genNameBy;
  }

  /** {@return the {@link LongNameDelimiter} code} */
  public short getNameDelimiter() {
    return nameDelimiter;
  }

  /**
   * Sets the {@link LongNameDelimiter} code.
   *
   * @param nameDelimiter the code
   */
  public void setNameDelimiter(short nameDelimiter) {
    this.nameDelimiter = nameDelimiter;
  }

  /** {@return the name of the attribute-calculations dimension} */
  public String getCalcDimensionName() {
    return calcDimensionName;
  }

  /**
   * Sets the name of the attribute-calculations dimension.
   *
   * @param calcDimensionName the name of the attribute-calculations dimension
   */
  public void setCalcDimensionName(String calcDimensionName) {
    this.calcDimensionName = calcDimensionName;
  }

  /** {@return the name of its Sum member} */
  public String getCalcSumName() {
    return calcSumName;
  }

  /**
   * Sets the name of its Sum member.
   *
   * @param calcSumName the name of its Sum member
   */
  public void setCalcSumName(String calcSumName) {
    this.calcSumName = calcSumName;
  }

  /** {@return the name of its Count member} */
  public String getCalcCountName() {
    return calcCountName;
  }

  /**
   * Sets the name of its Count member.
   *
   * @param calcCountName the name of its Count member
   */
  public void setCalcCountName(String calcCountName) {
    this.calcCountName = calcCountName;
  }

  /** {@return the name of its Average member} */
  public String getCalcAverageName() {
    return calcAverageName;
  }

  /**
   * Sets the name of its Average member.
   *
   * @param calcAverageName the name of its Average member
   */
  public void setCalcAverageName(String calcAverageName) {
    this.calcAverageName = calcAverageName;
  }

  /** {@return the name of its Minimum member} */
  public String getCalcMinimumName() {
    return calcMinimumName;
  }

  /**
   * Sets the name of its Minimum member.
   *
   * @param calcMinimumName the name of its Minimum member
   */
  public void setCalcMinimumName(String calcMinimumName) {
    this.calcMinimumName = calcMinimumName;
  }

  /** {@return the name of its Maximum member} */
  public String getCalcMaximumName() {
    return calcMaximumName;
  }

  /**
   * Sets the name of its Maximum member.
   *
   * @param calcMaximumName the name of its Maximum member
   */
  public void setCalcMaximumName(String calcMaximumName) {
    this.calcMaximumName = calcMaximumName;
  }

  /** {@return the member name for Boolean TRUE} */
  public String getBooleanNameTrue() {
    return booleanNameTrue;
  }

  /**
   * Sets the member name for Boolean TRUE.
   *
   * @param booleanNameTrue the member name for Boolean TRUE
   */
  public void setBooleanNameTrue(String booleanNameTrue) {
    this.booleanNameTrue = booleanNameTrue;
  }

  /** {@return the member name for Boolean FALSE} */
  public String getBooleanNameFalse() {
    return booleanNameFalse;
  }

  /**
   * Sets the member name for Boolean FALSE.
   *
   * @param booleanNameFalse the member name for Boolean FALSE
   */
  public void setBooleanNameFalse(String booleanNameFalse) {
    this.booleanNameFalse = booleanNameFalse;
  }

  /** {@return the {@link AttributeDateFormat} code} */
  public short getDateMemberName() {
    return dateMemberName;
  }

  /**
   * Sets the {@link AttributeDateFormat} code.
   *
   * @param dateMemberName the code
   */
  public void setDateMemberName(short dateMemberName) {
    this.dateMemberName = dateMemberName;
  }

  /** {@return the {@link BucketingType} code} */
  public short getNumericBound() {
    return numericBound;
  }

  /**
   * Sets the {@link BucketingType} code.
   *
   * @param numericBound the code
   */
  public void setNumericBound(short numericBound) {
    this.numericBound = numericBound;
  }

  @Override
  public String toString() {
    return "AttributeSpecification[useNameOf=" + useNameOf + ", genNameBy=" + genNameBy
        + ", nameDelimiter=" + nameDelimiter
        + ", calcDimensionName=" + calcDimensionName + ", calcSumName=" + calcSumName
        + ", calcCountName=" + calcCountName + ", calcAverageName=" + calcAverageName
        + ", calcMinimumName=" + calcMinimumName
        + ", calcMaximumName=" + calcMaximumName
        + ", booleanNameTrue=" + booleanNameTrue
        + ", booleanNameFalse=" + booleanNameFalse
        + ", dateMemberName=" + dateMemberName
        + ", numericBound=" + numericBound + "]";
  }
}
