package com.olvane.kep.olvane.api.outline;

/**
 * The state of a copy between {@code copyMember} and the calls of {@code copyContinue}. The
 * native methods fill it; a caller repeats {@code copyContinue} until {@link #isFinished} and may
 * show {@link #getCount} of {@link #getTotal} meanwhile.
 */
public final class CopyRequest {
  private int firstSourceHandle;
  private int lastSourceHandle;
  private int lastTargetHandle;
  private int count;
  private int total;
  private boolean finished;

  /** Creates a request for a new copy. */
  public CopyRequest() {}

  /** {@return the root of the copied subtree} */
  public int getFirstSourceHandle() {
    return firstSourceHandle;
  }

  /**
   * Sets the root of the copied subtree.
   *
   * @param firstSourceHandle the root of the copied subtree
   */
  public void setFirstSourceHandle(int firstSourceHandle) {
    this.firstSourceHandle = firstSourceHandle;
  }

  /** {@return the source member copied last} */
  public int getLastSourceHandle() {
    return lastSourceHandle;
  }

  /**
   * Sets the source member copied last.
   *
   * @param lastSourceHandle the source member copied last
   */
  public void setLastSourceHandle(int lastSourceHandle) {
    this.lastSourceHandle = lastSourceHandle;
  }

  /** {@return the copy made last} */
  public int getLastTargetHandle() {
    return lastTargetHandle;
  }

  /**
   * Sets the copy made last.
   *
   * @param lastTargetHandle the copy made last
   */
  public void setLastTargetHandle(int lastTargetHandle) {
    this.lastTargetHandle = lastTargetHandle;
  }

  /** {@return the number of members copied so far} */
  public int getCount() {
    return count;
  }

  /**
   * Sets the number of members copied so far.
   *
   * @param count the number of members copied so far
   */
  public void setCount(int count) {
    this.count = count;
  }

  /** {@return the number of members known to need copying} */
  public int getTotal() {
    return total;
  }

  /**
   * Sets the number of members known to need copying.
   *
   * @param total the number of members known to need copying
   */
  public void setTotal(int total) {
    this.total = total;
  }

  /** {@return whether nothing is left to copy} */
  public boolean isFinished() {
    return finished;
  }

  /**
   * Sets whether nothing is left to copy.
   *
   * @param finished true if so
   */
  public void setFinished(boolean finished) {
    this.finished = finished;
  }

  @Override
  public String toString() {
    return "CopyRequest[" + count + " of " + total + (finished ? ", finished]" : "]");
  }
}
