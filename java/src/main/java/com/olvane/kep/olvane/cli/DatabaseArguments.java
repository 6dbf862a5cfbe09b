package com.olvane.kep.olvane.cli;

import picocli.CommandLine.Parameters;

/** The arguments that name a database. */
final class DatabaseArguments {
  @Parameters(index = "0", paramLabel = "APPLICATION", description = "Application.")
  String application;

  @Parameters(index = "1", paramLabel = "DATABASE", description = "Database of the application.")
  String database;
}
