package com.olvane.kep.olvane.cli.demo;

import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;

/**
 * A line that tells how far something has come. On a terminal it is rewritten in place and wiped
 * out at the end; elsewhere it is not printed, for a log wants results only.
 */
final class ProgressLine implements AutoCloseable {
  private static final Path ERROR_STREAM = Paths.get("/proc/self/fd/2");

  private final PrintWriter writer;
  private final boolean terminal;
  private int width;

  /**
   * Begins a line.
   *
   * @param writer writes to standard error
   */
  ProgressLine(PrintWriter writer) {
    this(writer, isTerminal());
  }

  /**
   * Begins a line.
   *
   * @param writer where the line goes
   * @param terminal true if that is a terminal
   */
  ProgressLine(PrintWriter writer, boolean terminal) {
    this.writer = writer;
    this.terminal = terminal;
  }

  /** Java 8 can ask about standard input and output together only. */
  private static boolean isTerminal() {
    try {
      String device = Files.readSymbolicLink(ERROR_STREAM).toString();
      return device.startsWith("/dev/pts/") || device.startsWith("/dev/tty");
    } catch (IOException e) {
      return false;
    }
  }

  /**
   * Shows a text in place of the one shown before.
   *
   * @param text one line
   */
  void show(String text) {
    if (!terminal) {
      return;
    }
    StringBuilder line = new StringBuilder("\r").append(text);
    for (int i = text.length(); i < width; i++) {
      line.append(' ');
    }
    width = text.length();
    writer.print(line);
    writer.flush();
  }

  /** Wipes the line out. */
  @Override
  public void close() {
    show("");
    if (terminal) {
      writer.print("\r");
      writer.flush();
    }
  }
}
