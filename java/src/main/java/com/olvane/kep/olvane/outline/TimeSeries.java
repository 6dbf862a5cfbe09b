package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import java.util.ArrayList;
import java.util.List;

/** The dynamic time series of an outline: entries such as Y-T-D that sum up to a period. */
public final class TimeSeries {
  private final Access access;

  TimeSeries(Access access) {
    this.access = access;
  }

  /** {@return the entries that are enabled, with their aliases} */
  public List<DynamicTimeSeries> enabled() {
    List<DynamicTimeSeries> found = new ArrayList<>();
    access.read("list the time series of " + access.name(),
        (i, o) -> OutlineJni.getDTSMembersEx(i, o, found));
    return found;
  }

  /**
   * Enables an entry, or moves one that is enabled.
   *
   * @param name the name of the entry
   * @param generation the generation of the time dimension to define it on
   */
  public void enable(String name, int generation) {
    set("enable", name, generation, true);
  }

  /**
   * Disables an entry.
   *
   * @param name the name of the entry
   * @param generation the generation that it is defined on
   */
  public void disable(String name, int generation) {
    set("disable", name, generation, false);
  }

  private void set(String action, String name, int generation, boolean enable) {
    Texts.given("", "name of the time series", name, Texts.NAME);
    access.edit(action + " the time series", name,
        (i, o) -> OutlineJni.enableDTSMember(i, o, name, (short) generation, enable));
  }

  /**
   * Sets the alias of an entry.
   *
   * @param name the name of the entry
   * @param table the name of the alias table
   * @param alias the alias, empty to remove it
   */
  public void alias(String name, String table, String alias) {
    Texts.given("", "name of the time series", name, Texts.NAME);
    Texts.aliasTable(table);
    access.edit("set the alias in " + table + " of the time series", name, (i, o) -> alias.isEmpty()
        ? OutlineJni.deleteDTSMemberAlias(i, o, name, table)
        : OutlineJni.setDTSMemberAlias(i, o, name, alias, table));
  }

  /**
   * Lists the leaves of a time dimension that can be chosen as the latest period.
   *
   * @param dimension the dimension
   * @return their names
   */
  public List<String> latestPeriods(Member dimension) {
    List<String> names = new ArrayList<>();
    access.read("list the latest periods of", dimension.name(),
        (i, o) -> OutlineJni.listDTSLatestMembers(i, o, dimension.name(), names));
    return names;
  }
}
