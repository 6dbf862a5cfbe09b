package com.olvane.kep.olvane.defs;

/** A level of a dimension and its name. */
public final class DefinedLevel {
  private String dimension;
  private String name;
  private short number;

  /** Creates an empty object. */
  public DefinedLevel() {}

  /** {@return the name of the dimension} */
  public String getDimension() {
    return dimension;
  }

  /**
   * Sets the name of the dimension.
   *
   * @param dimension the name of the dimension
   */
  public void setDimension(String dimension) {
    this.dimension = dimension;
  }

  /** {@return the name of the level} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the level.
   *
   * @param name the name of the level
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the number of the level, counted from the leaves, which are 0} */
  public short getNumber() {
    return number;
  }

  /**
   * Sets the number of the level, counted from the leaves, which are 0.
   *
   * @param number the level number
   */
  public void setNumber(short number) {
    this.number = number;
  }

  @Override
  public String toString() {
    return "DefinedLevel[dimension=" + dimension + ", name=" + name + ", number=" + number + "]";
  }
}
