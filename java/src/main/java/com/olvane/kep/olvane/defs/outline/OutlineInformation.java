package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** Outline-wide settings as plain values. */
public final class OutlineInformation {
  private boolean autoConfigure;
  private boolean caseSensitive;
  private short outlineType;
  private final List<String> aliasTables = new ArrayList<>();

  /** Creates an empty object. */
  public OutlineInformation() {}

  /**
   * {@return whether dimensions are configured automatically; true also when only warnings are
   * on; {@link OutlineSettings} keeps the two apart}
   */
  public boolean isAutoConfigure() {
    return autoConfigure;
  }

  /**
   * Sets whether dimensions are configured automatically.
   *
   * @param autoConfigure true if so
   */
  public void setAutoConfigure(boolean autoConfigure) {
    this.autoConfigure = autoConfigure;
  }

  /** {@return whether member names are case-sensitive} */
  public boolean isCaseSensitive() {
    return caseSensitive;
  }

  /**
   * Sets whether member names are case-sensitive.
   *
   * @param caseSensitive true if so
   */
  public void setCaseSensitive(boolean caseSensitive) {
    this.caseSensitive = caseSensitive;
  }

  /** {@return the {@link OutlineType} code} */
  public short getOutlineType() {
    return outlineType;
  }

  /**
   * Sets the {@link OutlineType} code.
   *
   * @param outlineType the code
   */
  public void setOutlineType(short outlineType) {
    this.outlineType = outlineType;
  }

  /**
   * Appends the name of an alias table; the first is the default table.
   *
   * @param name the name of the table
   */
  public void addAliasTable(String name) {
    aliasTables.add(name);
  }

  /**
   * Returns the names of the alias tables, the default table first.
   *
   * @return an unmodifiable view
   */
  public List<String> getAliasTables() {
    return Collections.unmodifiableList(aliasTables);
  }

  @Override
  public String toString() {
    return "OutlineInformation[autoConfigure=" + autoConfigure
        + ", caseSensitive=" + caseSensitive + ", outlineType=" + outlineType
        + ", aliasTables=" + aliasTables + "]";
  }
}
