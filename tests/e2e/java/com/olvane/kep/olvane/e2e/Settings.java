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
   * Names a new store: an empty folder or, when the environment names the folder of a running
   * PostgreSQL server, a database there.
   *
   * @return the address of the store
   */
  public static String newStore() {
    String server = System.getenv("KEPOTL_SERVER");
    if (server == null) {
      return newFolder().toString();
    }
    String database = "e2e_" + folders.incrementAndGet();
    // Not with what a sanitizer's build loads into the virtual machine: psql would not end with it.
    run(
        "env", "-u", "LD_PRELOAD", "psql", "-X", "-q", "-h", server, "-U", "outline", "-d", "postgres",
        "-c", "CREATE DATABASE " + database);
    String address = "postgresql:///" + database + "?host=" + server + "&user=outline";
    List<String> init =
        new ArrayList<>(Arrays.asList(System.getProperty("e2e.outline").split("\\|")));
    init.addAll(Arrays.asList("store", "init", "--quiet", "--store", address));
    run(init.toArray(new String[0]));
    return address;
  }

  private static void run(String... command) {
    try {
      int code = new ProcessBuilder(command).inheritIO().start().waitFor();
      if (code != 0) {
        throw new IllegalStateException(String.join(" ", command) + " ended with " + code);
      }
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    } catch (InterruptedException e) {
      throw new IllegalStateException(e);
    }
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
