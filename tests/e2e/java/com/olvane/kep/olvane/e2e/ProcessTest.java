package com.olvane.kep.olvane.e2e;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoreLock;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.Rule;
import org.junit.Test;

/** Several processes: on one store, and on one folder for extracted libraries. */
public class ProcessTest {
  private static final String OTHER = "Other";

  @Rule public final StoreRule store = new StoreRule();

  /** Starts a process that edits the outline of a database, with the library from the jar. */
  private Process start(String database, Path libraries) throws IOException {
    return new ProcessBuilder(Settings.java("-Djava.library.path=",
        "-Dkepotl.tmpdir=" + libraries, Peer.class.getName(), store.address(), database))
        .redirectError(ProcessBuilder.Redirect.INHERIT)
        .start();
  }

  private static String line(Process process) throws IOException {
    return new BufferedReader(
        new InputStreamReader(process.getInputStream(), StandardCharsets.UTF_8)).readLine();
  }

  private void assertLocked(String database, boolean locked) {
    assertEquals(locked, OutlineJni.getLockedState(store.instance(), store.session().context(),
        StoreRule.APPLICATION, database) != 0);
    try {
      OpenOutline.edit(store.session(), StoreRule.APPLICATION, database).close();
      assertFalse("opened while another process edits it", locked);
    } catch (StatusException e) {
      assertTrue(e.getMessage(), locked);
      assertThat(e.getMessage(), containsString("Another login holds the lock"));
    }
  }

  @Test
  public void locksHoldBetweenProcessesAndEndWithThem() throws Exception {
    store.session().createDatabase(StoreRule.APPLICATION, OTHER);
    for (String database : new String[] {StoreRule.DATABASE, OTHER}) {
      // The lock of an object that was never written has no state to ask for.
      try (OpenOutline open =
          OpenOutline.edit(store.session(), StoreRule.APPLICATION, database)) {
        open.write();
      }
    }
    Path libraries = Settings.newFolder();
    Process killed = start(StoreRule.DATABASE, libraries);
    Process ended = start(OTHER, libraries);
    try {
      String location = line(killed);
      assertEquals("both extracted to one place", location, line(ended));
      assertTrue(location, Paths.get(location).startsWith(libraries));
      assertTrue(location, Files.isRegularFile(Paths.get(location)));
      assertLocked(StoreRule.DATABASE, true);
      assertLocked(OTHER, true);
      assertEquals(Arrays.asList("Test/Other/Other", "Test/Test/Test"), store.session().locks()
          .stream().map(StoreLock::object).collect(Collectors.toList()));

      killed.destroyForcibly().waitFor();
      assertLocked(StoreRule.DATABASE, false);
      assertLocked(OTHER, true);

      store.session().breakLock("Test/Other/Other");
      assertLocked(OTHER, false);

      ended.getOutputStream().close();
      assertEquals(0, ended.waitFor());
      assertLocked(OTHER, false);
    } finally {
      killed.destroyForcibly();
      ended.destroyForcibly();
    }
  }

  @Test
  public void aFileSystemThatRunsNoProgramsIsNamedWithACure() throws Exception {
    if (Settings.isEmulated()) {
      return; // the emulator reads programs by itself and heeds no such option
    }
    Path folder = Settings.newFolder();
    // As root in a mount namespace, or else as a user in one of its own.
    List<String> command = new ArrayList<>(Arrays.asList("sh", "-c",
        "for how in -m -rm; do unshare $how true 2>/dev/null && exec unshare $how sh -c "
            + "'mount -t tmpfs -o noexec tmpfs \"$0\" || exit 77; exec \"$@\"' \"$0\" \"$@\"; done; "
            + "echo no mount namespace can be made; exit 77",
        folder.toString()));
    command.addAll(Settings.java("-Djava.library.path=", "-Dkepotl.tmpdir=" + folder,
        Peer.class.getName(), store.address(), StoreRule.DATABASE));
    Process process = new ProcessBuilder(command).redirectErrorStream(true).start();
    process.getOutputStream().close();
    String output = new BufferedReader(
        new InputStreamReader(process.getInputStream(), StandardCharsets.UTF_8))
        .lines().collect(Collectors.joining("\n"));
    if (process.waitFor() == 77) {
      // Where nobody may mount, the message is tested with the system's words only.
      System.err.print(" (not tried, for mounting is not allowed here: " + output + ")");
      return;
    }
    assertThat(output, containsString("does not allow programs to run (noexec)"));
    assertThat(output, containsString("-Dkepotl.tmpdir=FOLDER"));
  }
}
