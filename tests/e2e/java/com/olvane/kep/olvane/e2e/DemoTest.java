package com.olvane.kep.olvane.e2e;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.CoreMatchers.not;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;

import java.nio.file.Path;
import org.junit.Test;

/** The demo, as people run it. It compares what it reads with what it wrote, and fails if not. */
public class DemoTest {
  @Test
  public void allActsPlayAndEverythingReadsBackAsWritten() {
    World.Run run = World.get().demo();
    assertEquals(run.err, 0, run.exitCode);
    String[] results = {
      "all members, properties, aliases, attributes and formulas are what was written",
      "Ancestors of", "Time series          Q-T-D", "Copied ", "Attribute dimension Subdivision type",
      "Verified: ", "restructured: yes", "Currency database Demo.Rates", "formula has the word Sales",
      "the two files are the same, byte for byte", " 0 outstanding, 0 wrong releases"
    };
    for (String result : results) {
      assertThat(run.out, containsString(result));
    }
    assertThat("no lines rewritten in a log", run.err, not(containsString("\r")));
  }

  @Test
  public void runsAgainOnItsOwnStoreOneActAtATime() {
    Path store = Settings.newFolder();
    World.Run life = World.demo(store, 2, "--act", "life");
    assertEquals(life.err, 0, life.exitCode);
    World.Run search = World.demo(store, 3, "--act", "Search");
    assertEquals(search.err, 0, search.exitCode);
    assertThat(search.err, containsString("emptying it first"));
    assertThat(search.out, containsString("Searching"));
    assertThat(search.out, not(containsString("Verified")));
  }

  @Test
  public void wrongArgumentsAreWrongUsage() {
    assertEquals(2, World.demo(Settings.newFolder(), 2, "--act", "juggling").exitCode);
    assertEquals(2, World.demo(Settings.newFolder(), 0).exitCode);
  }
}
