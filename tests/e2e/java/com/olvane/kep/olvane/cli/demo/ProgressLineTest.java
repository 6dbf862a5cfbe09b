package com.olvane.kep.olvane.cli.demo;

import static org.junit.Assert.assertEquals;

import java.io.PrintWriter;
import java.io.StringWriter;
import org.junit.Test;

/** The progress line on a terminal and elsewhere. */
public class ProgressLineTest {
  private static String written(boolean terminal) {
    StringWriter written = new StringWriter();
    try (ProgressLine line = new ProgressLine(new PrintWriter(written), terminal)) {
      line.show("12 members");
      line.show("done");
    }
    return written.toString();
  }

  @Test
  public void rewritesItselfAndLeavesAnEmptyLineOnATerminal() {
    assertEquals("\r12 members\rdone      \r    \r", written(true));
  }

  @Test
  public void isSilentElsewhere() {
    assertEquals("", written(false));
  }
}
