package com.olvane.kep.olvane.defs.outline;

/** The alias of a member in one alias table. */
public final class MemberAlias {
  private String tableName;
  private String aliasName;

  /** Creates an empty object. */
  public MemberAlias() {}

  /** {@return the name of the alias table, or null for the default table that was not named} */
  public String getTableName() {
    return tableName;
  }

  /**
   * Sets the name of the alias table, or null for the default table that was not named.
   *
   * @param tableName the name of the alias table
   */
  public void setTableName(String tableName) {
    this.tableName = tableName;
  }

  /** {@return the alias, or null if the member has none in the table} */
  public String getAliasName() {
    return aliasName;
  }

  /**
   * Sets the alias, or null if the member has none in the table.
   *
   * @param aliasName the alias
   */
  public void setAliasName(String aliasName) {
    this.aliasName = aliasName;
  }

  @Override
  public String toString() {
    return "MemberAlias[tableName=" + tableName + ", aliasName=" + aliasName + "]";
  }
}
