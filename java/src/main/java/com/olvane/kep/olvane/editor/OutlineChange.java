package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/** What an edit changed, gathered while it ran. Members are told by their handles. */
final class OutlineChange {
  /** Stands for the dimensions among the parents. */
  static final int DIMENSIONS = 0;

  private final Set<Integer> members = new LinkedHashSet<>();
  private final Set<Integer> parents = new LinkedHashSet<>();
  private final List<Ref> selection = new ArrayList<>();
  private long membersAdded;
  private boolean settings;
  private boolean aliasTables;
  private boolean details;

  /** A member's name or details changed. */
  void member(int handle) {
    members.add(handle);
  }

  /** The children of a member changed, or their order; 0 for the dimensions. */
  void children(int parent) {
    parents.add(parent);
  }

  /** Details of members changed all over the outline. */
  void details() {
    details = true;
  }

  /** The settings of the outline, or the generations, levels or time series of a dimension. */
  void settings() {
    settings = true;
  }

  /** The list of alias tables, or what is in them. */
  void aliasTables() {
    aliasTables = true;
    details = true;
  }

  /** Members came, or went with a negative number. */
  void added(long count) {
    membersAdded += count;
  }

  /** The member is to be selected after the edit, with those named before. */
  void select(Ref member) {
    selection.add(member);
  }

  Set<Integer> members() {
    return members;
  }

  Set<Integer> parents() {
    return parents;
  }

  List<Ref> selection() {
    return selection;
  }

  long membersAdded() {
    return membersAdded;
  }

  boolean settingsChanged() {
    return settings;
  }

  boolean aliasTablesChanged() {
    return aliasTables;
  }

  /** Whether the details of any member may have changed. */
  boolean detailsChanged() {
    return details;
  }
}
