package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/** What an edit changed, gathered while it ran. Members are told by their handles. */
final class OutlineChange {
  /** Stands for the dimensions among the parents. */
  static final int DIMENSIONS = 0;

  /** Members whose name or details changed. */
  final Set<Integer> members = new LinkedHashSet<>();
  /** Members whose children changed, or their order. */
  final Set<Integer> parents = new LinkedHashSet<>();
  /** The members to be selected after the edit. */
  final List<Ref> selection = new ArrayList<>();
  /** How many members came, less those that went. */
  long membersAdded;
  /** Whether the settings changed, or the generations, levels or series of a dimension. */
  boolean settingsChanged;
  /** Whether the list of alias tables changed, or what is in them. */
  boolean aliasTablesChanged;
  /** Whether the details of any member may have changed. */
  boolean detailsChanged;

  void settings() {
    settingsChanged = true;
  }

  void aliasTables() {
    aliasTablesChanged = true;
    detailsChanged = true;
  }
}
