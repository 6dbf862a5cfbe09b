package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** What a block request answers for one of its members. */
public final class MemberRequestResult {
  private int handle;
  private String name;
  private final List<Object> data = new ArrayList<>();

  /** Creates a result without data. */
  public MemberRequestResult() {}

  /** {@return the handle of the member} */
  public int getHandle() {
    return handle;
  }

  /**
   * Sets the handle of the member.
   *
   * @param handle the handle of the member
   */
  public void setHandle(int handle) {
    this.handle = handle;
  }

  /** {@return the name that the request gave, or null if it gave a handle} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name that the request gave, or null if it gave a handle.
   *
   * @param name the name of the request
   */
  public void setName(String name) {
    this.name = name;
  }

  /**
   * Appends one piece of data.
   *
   * @param item a {@code String} (formula, user-defined attribute), a {@link MemberAlias} or a
   *     {@link MemberAttribute}
   */
  public void addData(Object item) {
    data.add(item);
  }

  /**
   * Returns the data in the order in which the outline gave it.
   *
   * @return an unmodifiable view; empty if the member has none
   */
  public List<Object> getData() {
    return Collections.unmodifiableList(data);
  }

  @Override
  public String toString() {
    return "MemberRequestResult[handle=" + handle + ", name=" + name + ", data=" + data + "]";
  }
}
