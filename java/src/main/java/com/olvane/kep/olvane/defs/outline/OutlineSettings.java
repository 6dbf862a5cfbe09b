package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** Outline-wide settings with their codes as value objects. */
public final class OutlineSettings {
  private boolean autoConfigure;
  private boolean provideWarnings;
  private boolean caseSensitive;
  private OutlineType outlineType;
  private final List<AliasTable> aliasTables = new ArrayList<>();

  /** Creates an empty object. */
  public OutlineSettings() {}

  /** {@return whether dimensions are configured automatically} */
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

  /** {@return whether warnings are provided} */
  public boolean isProvideWarnings() {
    return provideWarnings;
  }

  /**
   * Sets whether warnings are provided.
   *
   * @param provideWarnings true if so
   */
  public void setProvideWarnings(boolean provideWarnings) {
    this.provideWarnings = provideWarnings;
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

  /** {@return the type of the outline} */
  public OutlineType getOutlineType() {
    return outlineType;
  }

  /**
   * Sets the type of the outline.
   *
   * @param outlineType the type of the outline
   */
  public void setOutlineType(OutlineType outlineType) {
    this.outlineType = outlineType;
  }

  /**
   * Appends an alias table; the first is the default table.
   *
   * @param table the table
   */
  public void addAliasTable(AliasTable table) {
    aliasTables.add(table);
  }

  /**
   * Returns the alias tables, the default table first.
   *
   * @return an unmodifiable view
   */
  public List<AliasTable> getAliasTables() {
    return Collections.unmodifiableList(aliasTables);
  }

  @Override
  public String toString() {
    return "OutlineSettings[autoConfigure=" + autoConfigure
        + ", provideWarnings=" + provideWarnings + ", caseSensitive=" + caseSensitive
        + ", outlineType=" + outlineType + ", aliasTables=" + aliasTables + "]";
  }
}
