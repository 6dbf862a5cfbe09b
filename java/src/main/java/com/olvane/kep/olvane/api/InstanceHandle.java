package com.olvane.kep.olvane.api;

/** An initialised instance of the client API. */
public final class InstanceHandle extends Handle {
  /** Creates a wrapper that holds no handle. */
  public InstanceHandle() {}

  /**
   * Creates a wrapper for a handle.
   *
   * @param value the handle
   */
  public InstanceHandle(int value) {
    super(value);
  }
}
