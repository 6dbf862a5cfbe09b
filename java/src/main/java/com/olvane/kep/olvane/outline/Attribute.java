package com.olvane.kep.olvane.outline;

/** An attribute member that a member is associated with. */
public final class Attribute {
  private final int handle;
  private final String dimension;
  private final String name;

  Attribute(int handle, String dimension, String name) {
    this.handle = handle;
    this.dimension = dimension;
    this.name = name;
  }

  /** {@return the handle of the attribute member} */
  public int handle() {
    return handle;
  }

  /** {@return the name of its attribute dimension} */
  public String dimension() {
    return dimension;
  }

  /** {@return the name of the attribute member} */
  public String name() {
    return name;
  }

  @Override
  public String toString() {
    return dimension + ": " + name;
  }
}
