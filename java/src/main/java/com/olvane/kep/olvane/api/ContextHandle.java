package com.olvane.kep.olvane.api;

/** A login context on the server. */
public final class ContextHandle extends Handle {
  /** Creates a wrapper that holds no handle. */
  public ContextHandle() {}

  /**
   * Creates a wrapper for a handle.
   *
   * @param value the handle
   */
  public ContextHandle(int value) {
    super(value);
  }
}
