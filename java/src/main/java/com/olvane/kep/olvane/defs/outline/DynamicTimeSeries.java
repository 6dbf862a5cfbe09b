package com.olvane.kep.olvane.defs.outline;

import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.Map;

/** An enabled dynamic-time-series entry with its aliases. */
public final class DynamicTimeSeries {
  private String name;
  private short generation;
  private boolean enabled;
  private final Map<String, String> aliases = new LinkedHashMap<>();

  /** Creates an empty object. */
  public DynamicTimeSeries() {}

  /** {@return the name of the entry} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the entry.
   *
   * @param name the name of the entry
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the generation that the entry is defined on} */
  public short getGeneration() {
    return generation;
  }

  /**
   * Sets the generation that the entry is defined on.
   *
   * @param generation the generation that the entry is defined on
   */
  public void setGeneration(short generation) {
    this.generation = generation;
  }

  /** {@return whether the entry is enabled} */
  public boolean isEnabled() {
    return enabled;
  }

  /**
   * Sets whether the entry is enabled.
   *
   * @param enabled true if so
   */
  public void setEnabled(boolean enabled) {
    this.enabled = enabled;
  }

  /**
   * Sets the alias of the entry in one alias table.
   *
   * @param table the name of the alias table
   * @param alias the alias, empty if there is none
   */
  public void setAlias(String table, String alias) {
    aliases.put(table, alias);
  }

  /**
   * Returns the aliases by the name of their table, in the order of the outline's tables.
   *
   * @return an unmodifiable view
   */
  public Map<String, String> getAliases() {
    return Collections.unmodifiableMap(aliases);
  }

  @Override
  public String toString() {
    return "DynamicTimeSeries[name=" + name + ", generation=" + generation
        + ", aliases=" + aliases + "]";
  }
}
