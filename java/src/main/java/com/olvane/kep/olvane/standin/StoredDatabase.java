package com.olvane.kep.olvane.standin;

import java.time.Instant;

/** A database of a store, as it was when it was listed. */
public final class StoredDatabase {
  private final String application;
  private final String database;
  private final long members;
  private final long size;
  private final Instant saved;

  StoredDatabase(String application, String database, long members, long size, Instant saved) {
    this.application = application;
    this.database = database;
    this.members = members;
    this.size = size;
    this.saved = saved;
  }

  /** {@return the name of the application} */
  public String application() {
    return application;
  }

  /** {@return the name of the database} */
  public String database() {
    return database;
  }

  /** {@return the number of members of the stored outline, 0 where none can be read} */
  public long members() {
    return members;
  }

  /** {@return the size of the stored outline in bytes, 0 where none was stored} */
  public long size() {
    return size;
  }

  /** {@return when the outline was stored last; the epoch where none was} */
  public Instant saved() {
    return saved;
  }

  @Override
  public String toString() {
    return application + "." + database;
  }
}
