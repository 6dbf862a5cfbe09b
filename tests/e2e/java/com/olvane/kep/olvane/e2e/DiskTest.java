package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.api.outline.SavedFile;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.LinkedHashMap;
import java.util.Map;
import org.junit.Rule;
import org.junit.Test;

/** What happens when the disk takes no more: a status, and the old outline stays. */
public class DiskTest {
  private static final int MEMBERS = 2000;
  private static final int LIMIT = 16 * 1024;
  private static final String OTHER = "Other";

  @Rule public final StoreRule store = new StoreRule();

  @Test
  public void outlineThatDoesNotFitIsRefusedAndTheStoredOneStays() throws Exception {
    Path stored = store.folder().resolve("Test/Test/Test.otl");
    store.session().createDatabase(StoreRule.APPLICATION, OTHER);
    try (OpenOutline open = OpenOutline.edit(store.session(), StoreRule.APPLICATION, OTHER)) {
      open.write(); // only an object that was written has a lock state
    }
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
      Map<String, Integer> statuses = new LinkedHashMap<>();
      limitFileSize(Integer.toString(LIMIT));
      try {
        statuses.put("write", OutlineJni.write(
            context(), open.handle(), StoreRule.APPLICATION, StoreRule.DATABASE));
        statuses.put("save to another database", OutlineJni.saveAsObject(open.instance(),
            context(), open.handle(), context(), StoreRule.APPLICATION, OTHER));
        statuses.put("save as a file", OutlineJni.saveAsFileBegin(
            open.instance(), context(), open.handle(), new SavedFile()));
        statuses.put("export", OutlineJni.exportAliasTable(
            open.instance(), open.handle(), "Default", file.toString()));
      } finally {
        limitFileSize("unlimited");
      }
      assertEquals(-1, statuses.remove("export").intValue());
      statuses.forEach((kind, status) -> assertThat(
          kind, StandinSession.message(status), containsString("The disk is full")));
      assertArrayEquals(before, Files.readAllBytes(stored));
      assertEquals("the lock was given back", 0, OutlineJni.getLockedState(
          open.instance(), context(), StoreRule.APPLICATION, OTHER));
      open.write();
    }
    try (OpenOutline open = store.query()) {
      assertEquals(MEMBERS, StoreRule.children(open, "Kept").size());
    }
    restructureIsRefused(stored);
  }

  private void restructureIsRefused(Path stored) throws Exception {
    byte[] before = Files.readAllBytes(stored);
    limitFileSize(Integer.toString(LIMIT));
    int status;
    try {
      status = OutlineJni.restructure(
          context(), (short) 1, StoreRule.APPLICATION, StoreRule.DATABASE);
    } finally {
      limitFileSize("unlimited");
    }
    assertThat(StandinSession.message(status), containsString("The disk is full"));
    assertArrayEquals(before, Files.readAllBytes(stored));
    check("restructure", OutlineJni.restructure(
        context(), (short) 1, StoreRule.APPLICATION, StoreRule.DATABASE));
  }

  private ContextHandle context() {
    return store.session().context();
  }

  /** Sets the size that this process may write to one file. */
  private static void limitFileSize(String bytes) throws IOException, InterruptedException {
    String process = Files.readSymbolicLink(Paths.get("/proc/self")).toString();
    assertEquals(0, new ProcessBuilder("prlimit", "--pid", process, "--fsize=" + bytes + ":")
        .inheritIO().start().waitFor());
  }
}
