package com.olvane.kep.olvane.e2e;

import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;

/** What the build tells the tests, and folders to work in. */
public final class Settings {
  private static final AtomicInteger folders = new AtomicInteger();

  private Settings() {}

  /** {@return the folder with the code lists and translations} */
  static Path data() {
    return Paths.get(System.getProperty("e2e.data"));
  }

  /** {@return kepotl.jar} */
  public static Path jar() {
    return Paths.get(System.getProperty("e2e.jar"));
  }

  /** {@return whether an emulator runs the virtual machine} */
  public static boolean isEmulated() {
    return System.getProperty("e2e.emulated").equals("1");
  }

  /**
   * Scales a size to what this run can afford.
   *
   * @param full the size with full data
   * @return a part of it, at least 1
   */
  public static int scaled(int full) {
    return Math.max(1, full / 100 * Integer.getInteger("e2e.scale"));
  }

  /**
   * Makes the command of another virtual machine of the same width and class path.
   *
   * @param arguments options, the main class and its arguments
   * @return the command
   */
  public static List<String> java(String... arguments) {
    List<String> command =
        new ArrayList<>(Arrays.asList(System.getProperty("e2e.java").split("\\|")));
    command.addAll(Arrays.asList("-cp", System.getProperty("java.class.path")));
    command.addAll(Arrays.asList(arguments));
    return command;
  }

  /**
   * Makes an empty folder. The runner of the tests removes it: Java under the emulator cannot list
   * folders, so it cannot empty them either.
   *
   * @return the folder
   */
  public static Path newFolder() {
    Path folder =
        Paths.get(System.getProperty("java.io.tmpdir"), "folder" + folders.incrementAndGet());
    try {
      return Files.createDirectory(folder);
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    }
  }
}
