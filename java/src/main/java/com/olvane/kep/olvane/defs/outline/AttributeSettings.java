package com.olvane.kep.olvane.defs.outline;

/** How attribute members are named and calculated, with codes as value objects. */
public final class AttributeSettings {
  private LongNameConstructor longNameConstructor;
  private LongNameSource longNameSource;
  private LongNameDelimiter longNameDelimiter;
  private AttributeDateFormat dateFormat;
  private BucketingType bucketingType;
  private String trueText;
  private String falseText;
  private String calculationDimension;
  private String sum;
  private String count;
  private String average;
  private String minimum;
  private String maximum;

  /** Creates an empty object. */
  public AttributeSettings() {}

  /** {@return how long names are built} */
  public LongNameConstructor getLongNameConstructor() {
    return longNameConstructor;
  }

  /**
   * Sets how long names are built.
   *
   * @param longNameConstructor how long names are built
   */
  public void setLongNameConstructor(LongNameConstructor longNameConstructor) {
    this.longNameConstructor = longNameConstructor;
  }

  /** {@return which names long names are built from} */
  public LongNameSource getLongNameSource() {
    return longNameSource;
  }

  /**
   * Sets which names long names are built from.
   *
   * @param longNameSource which names long names are built from
   */
  public void setLongNameSource(LongNameSource longNameSource) {
    this.longNameSource = longNameSource;
  }

  /** {@return what stands between the parts of a long name} */
  public LongNameDelimiter getLongNameDelimiter() {
    return longNameDelimiter;
  }

  /**
   * Sets what stands between the parts of a long name.
   *
   * @param longNameDelimiter what stands between the parts of a long name
   */
  public void setLongNameDelimiter(LongNameDelimiter longNameDelimiter) {
    this.longNameDelimiter = longNameDelimiter;
  }

  /** {@return the date format} */
  public AttributeDateFormat getDateFormat() {
    return dateFormat;
  }

  /**
   * Sets the date format.
   *
   * @param dateFormat the date format
   */
  public void setDateFormat(AttributeDateFormat dateFormat) {
    this.dateFormat = dateFormat;
  }

  /** {@return the bounds of numeric ranges} */
  public BucketingType getBucketingType() {
    return bucketingType;
  }

  /**
   * Sets the bounds of numeric ranges.
   *
   * @param bucketingType the bounds of numeric ranges
   */
  public void setBucketingType(BucketingType bucketingType) {
    this.bucketingType = bucketingType;
  }

  /** {@return the member name for Boolean TRUE} */
  public String getTrueText() {
    return trueText;
  }

  /**
   * Sets the member name for Boolean TRUE.
   *
   * @param trueText the member name for Boolean TRUE
   */
  public void setTrueText(String trueText) {
    this.trueText = trueText;
  }

  /** {@return the member name for Boolean FALSE} */
  public String getFalseText() {
    return falseText;
  }

  /**
   * Sets the member name for Boolean FALSE.
   *
   * @param falseText the member name for Boolean FALSE
   */
  public void setFalseText(String falseText) {
    this.falseText = falseText;
  }

  /** {@return the name of the attribute-calculations dimension} */
  public String getCalculationDimension() {
    return calculationDimension;
  }

  /**
   * Sets the name of the attribute-calculations dimension.
   *
   * @param calculationDimension the name of the attribute-calculations dimension
   */
  public void setCalculationDimension(String calculationDimension) {
    this.calculationDimension = calculationDimension;
  }

  /** {@return the name of its Sum member} */
  public String getSum() {
    return sum;
  }

  /**
   * Sets the name of its Sum member.
   *
   * @param sum the name of its Sum member
   */
  public void setSum(String sum) {
    this.sum = sum;
  }

  /** {@return the name of its Count member} */
  public String getCount() {
    return count;
  }

  /**
   * Sets the name of its Count member.
   *
   * @param count the name of its Count member
   */
  public void setCount(String count) {
    this.count = count;
  }

  /** {@return the name of its Average member} */
  public String getAverage() {
    return average;
  }

  /**
   * Sets the name of its Average member.
   *
   * @param average the name of its Average member
   */
  public void setAverage(String average) {
    this.average = average;
  }

  /** {@return the name of its Minimum member} */
  public String getMinimum() {
    return minimum;
  }

  /**
   * Sets the name of its Minimum member.
   *
   * @param minimum the name of its Minimum member
   */
  public void setMinimum(String minimum) {
    this.minimum = minimum;
  }

  /** {@return the name of its Maximum member} */
  public String getMaximum() {
    return maximum;
  }

  /**
   * Sets the name of its Maximum member.
   *
   * @param maximum the name of its Maximum member
   */
  public void setMaximum(String maximum) {
    this.maximum = maximum;
  }

  @Override
  public String toString() {
    return "AttributeSettings[longNameConstructor=" + longNameConstructor
        + ", longNameSource=" + longNameSource
        + ", longNameDelimiter=" + longNameDelimiter + ", dateFormat=" + dateFormat
        + ", bucketingType=" + bucketingType + ", trueText=" + trueText
        + ", falseText=" + falseText
        + ", calculationDimension=" + calculationDimension + ", sum=" + sum
        + ", count=" + count + ", average=" + average + ", minimum=" + minimum
        + ", maximum=" + maximum + "]";
  }
}
