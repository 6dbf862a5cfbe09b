package com.olvane.kep.olvane.cli;

import com.olvane.kep.olvane.outline.Store;
import picocli.CommandLine.Option;

/** The options that say which store a command works on, and as whom. */
public final class StoreOptions {
  @Option(
      names = "--store",
      paramLabel = "STORE",
      description = "Folder that holds the databases, or address on a PostgreSQL server (default:"
          + " ${DEFAULT-VALUE}).")
  private String store = "outlines";

  @Option(
      names = "--user",
      paramLabel = "NAME",
      description = "Name to log in with (default: ${DEFAULT-VALUE}).")
  private String user = System.getProperty("user.name");

  /** Creates the default options. */
  public StoreOptions() {}

  /** {@return the folder or address of the store} */
  public String address() {
    return store;
  }

  /** {@return the store, which is made if need be, to be closed by the caller} */
  public Store open() {
    return Store.open(store, user);
  }
}
