package com.olvane.kep.olvane.api;

/** An open outline. Opening sets the handle, closing resets it to 0. */
public final class OutlineHandle extends Handle {
  /** Creates a wrapper that holds no handle. */
  public OutlineHandle() {}
}
