package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNotEquals;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.OpenOutline;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import org.junit.Rule;
import org.junit.Test;

/** What happens when the disk takes no more: a status, and the old outline stays. */
public class DiskTest {
  private static final int MEMBERS = 2000;
  private static final int LIMIT = 16 * 1024;

  @Rule public final StoreRule store = new StoreRule();

  @Test
  public void outlineThatDoesNotFitIsRefusedAndTheStoredOneStays() throws Exception {
    Path stored = store.folder().resolve("Test/Test/Test.otl");
    try (OpenOutline open = store.edit()) {
      int dimension = StoreRule.create(open, 0, 0, "Kept");
      open.write();
      byte[] before = Files.readAllBytes(stored);
      for (int i = 0; i < MEMBERS; i++) {
        int member = StoreRule.create(open, dimension, 0, "Member " + i);
        check("alias", OutlineJni.assignMemberAlias(
            open.instance(), open.handle(), member, "Default", "The alias of member " + i));
      }
      Path file = Settings.newFolder().resolve("aliases");
      limitFileSize(Integer.toString(LIMIT));
      int written;
      int exported;
      try {
        written = OutlineJni.write(
            store.session().context(), open.handle(), StoreRule.APPLICATION, StoreRule.DATABASE);
        exported = OutlineJni.exportAliasTable(
            open.instance(), open.handle(), "Default", file.toString());
      } finally {
        limitFileSize("unlimited");
      }
      assertEquals("the export", -1, exported);
      assertNotEquals("the outline", 0, written);
      assertArrayEquals(before, Files.readAllBytes(stored));
      open.write();
    }
    try (OpenOutline open = store.query()) {
      assertEquals(MEMBERS, StoreRule.children(open, "Kept").size());
    }
  }

  /** Sets the size that this process may write to one file. */
  private static void limitFileSize(String bytes) throws IOException, InterruptedException {
    String process = Files.readSymbolicLink(Paths.get("/proc/self")).toString();
    assertEquals(0, new ProcessBuilder("prlimit", "--pid", process, "--fsize=" + bytes + ":")
        .inheritIO().start().waitFor());
  }
}
