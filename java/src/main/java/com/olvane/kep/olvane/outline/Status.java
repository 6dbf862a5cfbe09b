package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.standin.StandinSession;

/** The statuses that this library gives itself or acts on, and the sentences of all. */
public final class Status {
  /** Success. */
  public static final int OK = 0;
  /** The library's own refusal: a text that does not fit, or an answer that holds nothing. */
  public static final int REFUSED = -1;
  /** A copy was refused, or a member of it was not copied. */
  public static final int COPY_FAILED = 1060013;
  /** There is an alias table of this name. */
  public static final int ALIAS_TABLE_EXISTS = 1060040;
  /** The name of a new member is in use. */
  public static final int DUPLICATE_NAME = 1060051;

  /** The outline is not locked for this login; somebody took the lock away. */
  public static final int NOT_LOCKED = 1900018;
  /** The lock went with the connection to the store's server, or somebody took it away. */
  public static final int LOCK_LOST = 1900056;

  /** Statuses from here on are the embedded engine's own. */
  private static final int FIRST_OF_ENGINE = 1900001;

  private Status() {}

  /**
   * Says what a status means.
   *
   * @param status any status of the outline API or of the library
   * @return one sentence
   */
  public static String sentence(int status) {
    switch (status) {
      case OK:
        return "It succeeded.";
      case REFUSED:
        return "It was refused: a text or a place does not fit, a file cannot be used, or the"
            + " outline API gave nothing to work on.";
      case COPY_FAILED:
        return "The member cannot be copied there.";
      case ALIAS_TABLE_EXISTS:
        return "There is an alias table of this name already.";
      case DUPLICATE_NAME:
        return "The name is in use already.";
      default:
        return ofEngine(status);
    }
  }

  private static String ofEngine(int status) {
    if (status >= FIRST_OF_ENGINE) {
      try {
        return StandinSession.message(status);
      } catch (UnsatisfiedLinkError e) {
        // The vendor's libraries are in use; their statuses have no sentences here.
      }
    }
    return "Status " + status + " of the outline API.";
  }
}
