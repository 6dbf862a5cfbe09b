package com.olvane.kep.olvane.e2e;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.CoreMatchers.not;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.cli.demo.DemoCommand;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import org.junit.Test;
import picocli.CommandLine;

/** The demo, as people run it. It compares what it reads with what it wrote, and fails if not. */
public class DemoTest {
  private static final int COUNTRIES = 300; // more than there are

  private final StringWriter out = new StringWriter();
  private final StringWriter err = new StringWriter();

  /** Runs the demo in this virtual machine; gives the exit code. */
  private int demo(Path store, int countries, String... options) {
    List<String> arguments = new ArrayList<>(Arrays.asList(options));
    arguments.addAll(Arrays.asList("--store", store.toString(),
        "--data", Settings.data().toString(), "--countries", Integer.toString(countries)));
    return new CommandLine(new DemoCommand())
        .setCaseInsensitiveEnumValuesAllowed(true)
        .setOut(new PrintWriter(out))
        .setErr(new PrintWriter(err))
        .execute(arguments.toArray(new String[0]));
  }

  @Test
  public void allActsPlayAndEverythingReadsBackAsWritten() {
    assertEquals(err.toString(), 0, demo(Settings.newFolder(), Settings.scaled(COUNTRIES)));
    String[] results = {
      "all members, properties, aliases, attributes and formulas are what was written",
      "Ancestors of", "Time series          Q-T-D", "Copied ", "Attribute dimension Subdivision type",
      "Verified: ", "restructured: yes", "Currency database Demo.Rates", "formula has the word Sales",
      "the two files are the same, byte for byte", " 0 outstanding, 0 wrong releases"
    };
    for (String result : results) {
      assertThat(out.toString(), containsString(result));
    }
    assertThat("no lines rewritten in a log", err.toString(), not(containsString("\r")));
  }

  @Test
  public void runsAgainOnItsOwnStoreOneActAtATime() {
    Path store = Settings.newFolder();
    assertEquals(0, demo(store, 2, "--act", "life"));
    out.getBuffer().setLength(0);
    assertEquals(0, demo(store, 3, "--act", "Search"));
    assertThat(err.toString(), containsString("emptying it first"));
    assertThat(out.toString(), containsString("Searching"));
    assertThat(out.toString(), not(containsString("Verified")));
  }

  @Test
  public void wrongArgumentsAreWrongUsage() {
    assertEquals(2, demo(Settings.newFolder(), 2, "--act", "juggling"));
    assertEquals(2, demo(Settings.newFolder(), 0));
  }
}
