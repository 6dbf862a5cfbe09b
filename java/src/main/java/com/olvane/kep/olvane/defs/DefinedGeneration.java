package com.olvane.kep.olvane.defs;

/** A generation of a dimension and its name. */
public final class DefinedGeneration {
  private String dimension;
  private String name;
  private short number;

  /** Creates an empty object. */
  public DefinedGeneration() {}

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

  /** {@return the name of the generation} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the generation.
   *
   * @param name the name of the generation
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the number of the generation, counted from the dimension, which is 1} */
  public short getNumber() {
    return number;
  }

  /**
   * Sets the number of the generation, counted from the dimension, which is 1.
   *
   * @param number the generation number
   */
  public void setNumber(short number) {
    this.number = number;
  }

  @Override
  public String toString() {
    return "DefinedGeneration[dimension=" + dimension + ", name=" + name
        + ", number=" + number + "]";
  }
}
