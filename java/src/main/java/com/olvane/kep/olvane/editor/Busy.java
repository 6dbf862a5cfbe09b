package com.olvane.kep.olvane.editor;

/** Work that takes its time. */
final class Busy {
  /** What is being done: "Saving". */
  final String title;
  /** Whether {@link #cancelled} has an effect. */
  final boolean canCancel;
  /** How much is done, from 0 to 1; negative where nobody knows. */
  volatile double share = -1;
  /** Set to give it up; nothing of it stays then. */
  volatile boolean cancelled;

  Busy(String title, boolean canCancel) {
    this.title = title;
    this.canCancel = canCancel;
  }

  /** Takes note of how far it is; false when it is to be given up. */
  boolean at(long done, long total) {
    share = total == 0 ? -1 : (double) done / total;
    return !cancelled;
  }
}
