package com.olvane.kep.olvane.defs.outline;

/** The name of an alias table, and whether it is the outline's default table. */
public final class AliasTable {
  private String name;
  private boolean defaultTable;

  /** Creates an empty object. */
  public AliasTable() {}

  /** {@return the name of the table} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the table.
   *
   * @param name the name of the table
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return whether this is the default table of the outline} */
  public boolean isDefaultTable() {
    return defaultTable;
  }

  /**
   * Sets whether this is the default table of the outline.
   *
   * @param defaultTable true if so
   */
  public void setDefaultTable(boolean defaultTable) {
    this.defaultTable = defaultTable;
  }

  @Override
  public String toString() {
    return "AliasTable[name=" + name + ", defaultTable=" + defaultTable + "]";
  }
}
