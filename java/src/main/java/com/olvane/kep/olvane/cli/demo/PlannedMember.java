package com.olvane.kep.olvane.cli.demo;

import java.util.ArrayList;
import java.util.List;

/** One member of the outline that the demo builds, as it is to be. */
final class PlannedMember {
  /** The name. */
  final String name;

  /** The parent, or null for a dimension. */
  final PlannedMember parent;

  /** The children in outline order. */
  final List<PlannedMember> children = new ArrayList<>();

  /** The aliases by the position of their table in {@link OutlinePlan#TABLES}; null for none. */
  final String[] aliases = new String[OutlinePlan.TABLES.length];

  /** The aliases as they were planned, before those that would clash were changed. */
  final String[] plainAliases = new String[OutlinePlan.TABLES.length];

  /** The user-defined attribute, or null. */
  String attribute;

  /** The comment, or null. */
  String comment;

  /** The formula, or null. */
  String formula;

  /** The category code of a dimension. */
  short category;

  /** The consolidation code. */
  short consolidation;

  /** The handle in the outline while it is open for editing. */
  int handle;

  /**
   * Plans a member as the last child of its parent.
   *
   * @param name the name
   * @param parent the parent, or null for a dimension
   */
  PlannedMember(String name, PlannedMember parent) {
    this.name = name;
    this.parent = parent;
    if (parent != null) {
      parent.children.add(this);
    }
  }

  /** {@return the number of ancestors} */
  int depth() {
    return parent == null ? 0 : parent.depth() + 1;
  }
}
