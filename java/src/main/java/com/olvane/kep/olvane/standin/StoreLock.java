package com.olvane.kep.olvane.standin;

import java.time.Instant;

/** Somebody who holds the lock of a stored outline, or who restructures a database. */
public final class StoreLock {
  private final String object;
  private final String user;
  private final String host;
  private final long process;
  private final Instant since;

  StoreLock(String object, String user, String host, long process, Instant since) {
    this.object = object;
    this.user = user;
    this.host = host;
    this.process = process;
    this.since = since;
  }

  /** {@return "application/database/object" of a lock, "application/database" of a restructure} */
  public String object() {
    return object;
  }

  /** {@return the name that the holder logged in with; empty for an object of the scratch area} */
  public String user() {
    return user;
  }

  /** {@return the name of the holder's machine or container} */
  public String host() {
    return host;
  }

  /** {@return the holder's process, as its own machine or container numbers it} */
  public long process() {
    return process;
  }

  /** {@return when it began} */
  public Instant since() {
    return since;
  }

  @Override
  public String toString() {
    return object + " (" + user + ", process " + process + " on " + host + ", since " + since + ")";
  }
}
