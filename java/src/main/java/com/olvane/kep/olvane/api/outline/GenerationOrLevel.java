package com.olvane.kep.olvane.api.outline;

/** A generation or level of one dimension: its number and its name. */
public final class GenerationOrLevel {
  private final short number;
  private final String name;

  /**
   * Creates a generation or level.
   *
   * @param number the number; generations count from 1 at the dimension, levels from 0 at leaves
   * @param name the name, given by the outline's author or generated
   */
  public GenerationOrLevel(short number, String name) {
    this.number = number;
    this.name = name;
  }

  /**
   * Returns the number.
   *
   * @return the generation or level number
   */
  public short getNumber() {
    return number;
  }

  /**
   * Returns the name.
   *
   * @return the name
   */
  public String getName() {
    return name;
  }

  @Override
  public String toString() {
    return number + " " + name;
  }
}
