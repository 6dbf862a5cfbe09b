package com.olvane.kep.olvane.defs.calcscript;

/** A member in the light form that calculation scripts are edited with. */
public final class MemberInfo {
  private String name;
  private String parentName;
  private int dimensionCategory;
  private long childCount;
  private boolean attributed;
  private short attrDimDataType;
  private short genValue;
  private short storage;

  /**
   * Creates a member.
   *
   * @param name the name of the member
   * @param parentName the name or alias of the parent, or null
   * @param dimensionCategory the dimension category code
   * @param childCount the number of children
   * @param attributed whether the member carries attribute associations
   */
  public MemberInfo(
      String name, String parentName, int dimensionCategory, long childCount, boolean attributed) {
    this.name = name;
    this.parentName = parentName;
    this.dimensionCategory = dimensionCategory;
    this.childCount = childCount;
    this.attributed = attributed;
  }

  /** {@return the name of the member, or its alias where aliases were asked for} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the member, or its alias where aliases were asked for.
   *
   * @param name the name or alias
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the name or alias of the parent, or null for a dimension} */
  public String getParentName() {
    return parentName;
  }

  /** {@return the dimension category code} */
  public int getDimensionCategory() {
    return dimensionCategory;
  }

  /** {@return the number of children} */
  public long getChildCount() {
    return childCount;
  }

  /** {@return whether the member carries attribute associations} */
  public boolean isAttributed() {
    return attributed;
  }

  /** {@return the attribute type; set for attribute dimensions and their members only} */
  public short getAttrDimDataType() {
    return attrDimDataType;
  }

  /**
   * Sets the attribute type.
   *
   * @param attrDimDataType the attribute type code
   */
  public void setAttrDimDataType(short attrDimDataType) {
    this.attrDimDataType = attrDimDataType;
  }

  /** {@return the generation} */
  public short getGenValue() {
    return genValue;
  }

  /**
   * Sets the generation.
   *
   * @param genValue the generation
   */
  public void setGenValue(short genValue) {
    this.genValue = genValue;
  }

  /** {@return the storage type; set for dimensions only} */
  public short getStorage() {
    return storage;
  }

  /**
   * Sets the storage type.
   *
   * @param storage the storage type code
   */
  public void setStorage(short storage) {
    this.storage = storage;
  }

  @Override
  public String toString() {
    return "MemberInfo[name=" + name + ", parentName=" + parentName
        + ", childCount=" + childCount + "]";
  }
}
