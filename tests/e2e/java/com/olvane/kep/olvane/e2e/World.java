package com.olvane.kep.olvane.e2e;

import com.olvane.kep.olvane.cli.demo.DemoCommand;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import picocli.CommandLine;

/** The outline of the world, built once by the demo for all tests of a run. */
final class World {
  private static final int COUNTRIES = 300; // more than there are
  private static World instance;

  private final Path store = Settings.newFolder();
  private final Run demo;

  private World() {
    demo = demo(store, Settings.scaled(COUNTRIES));
  }

  static synchronized World get() {
    if (instance == null) {
      instance = new World();
    }
    return instance;
  }

  /** {@return the folder of the store, which holds Demo.World} */
  Path store() {
    return store;
  }

  /** {@return the run of the whole demo that made the store} */
  Run demo() {
    return demo;
  }

  /** Runs the demo in this virtual machine. */
  static Run demo(Path store, int countries, String... options) {
    List<String> arguments = new ArrayList<>(Arrays.asList(
        "--store", store.toString(), "--data", Settings.data().toString(),
        "--countries", Integer.toString(countries)));
    arguments.addAll(Arrays.asList(options));
    StringWriter out = new StringWriter();
    StringWriter err = new StringWriter();
    int exitCode = new CommandLine(new DemoCommand())
        .setCaseInsensitiveEnumValuesAllowed(true)
        .setOut(new PrintWriter(out))
        .setErr(new PrintWriter(err))
        .execute(arguments.toArray(new String[0]));
    return new Run(exitCode, out.toString(), err.toString());
  }

  /** What a run of the command came to. */
  static final class Run {
    final int exitCode;
    final String out;
    final String err;

    Run(int exitCode, String out, String err) {
      this.exitCode = exitCode;
      this.out = out;
      this.err = err;
    }
  }
}
