package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** The names from a member up to its dimension, as a member search reports them. */
public final class MemberPath {
  private final List<String> names = new ArrayList<>();

  /** Creates an empty path. */
  public MemberPath() {}

  /**
   * Appends the next name on the way up; the first is the member's own.
   *
   * @param name the name, a {@code String}
   */
  public void addParent(Object name) {
    names.add((String) name);
  }

  /**
   * Returns the names, the member's own first and its dimension's last.
   *
   * @return an unmodifiable view
   */
  public List<String> getNames() {
    return Collections.unmodifiableList(names);
  }

  @Override
  public String toString() {
    return "MemberPath" + names;
  }
}
