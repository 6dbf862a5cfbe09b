package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.children;
import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.SavedFile;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.IntSupplier;
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
    Path stored = Paths.get(store.address(), "Test/Test/Test.otl");
    store.session().createDatabase(StoreRule.APPLICATION, OTHER);
    try (OpenOutline open = OpenOutline.edit(store.session(), StoreRule.APPLICATION, OTHER)) {
      open.write(); // only an object that was written has a lock state
    }
    try (OpenOutline open = store.edit()) {
      int dimension = create(open, 0, 0, "Kept");
      open.write();
      byte[] before = Files.readAllBytes(stored);
      for (int i = 0; i < MEMBERS; i++) {
        int member = create(open, dimension, 0, "Member " + i);
        ok(OutlineJni.assignMemberAlias(open.instance(), open.handle(), member, "Default",
            "The alias of member " + i));
      }
      Path file = Settings.newFolder().resolve("aliases");
      Map<String, Integer> statuses = new LinkedHashMap<>();
      statuses.put("write", limited(() -> OutlineJni.write(
          context(), open.handle(), StoreRule.APPLICATION, StoreRule.DATABASE)));
      statuses.put("save to another database", limited(() -> OutlineJni.saveAsObject(
          open.instance(), context(), open.handle(), context(), StoreRule.APPLICATION, OTHER)));
      statuses.put("save as a file", limited(() -> OutlineJni.saveAsFileBegin(
          open.instance(), context(), open.handle(), new SavedFile())));
      statuses.forEach((kind, status) -> assertThat(
          kind, StandinSession.message(status), containsString("The disk is full")));
      assertEquals(-1, limited(() -> OutlineJni.exportAliasTable(
          open.instance(), open.handle(), "Default", file.toString())));
      assertArrayEquals(before, Files.readAllBytes(stored));
      assertEquals("the lock was given back", 0, OutlineJni.getLockedState(
          open.instance(), context(), StoreRule.APPLICATION, OTHER));
      open.write();
    }
    try (OpenOutline open = store.query()) {
      assertEquals(MEMBERS, children(open, "Kept").size());
    }
    byte[] before = Files.readAllBytes(stored);
    int status = limited(this::restructure);
    assertThat(StandinSession.message(status), containsString("The disk is full"));
    assertArrayEquals(before, Files.readAllBytes(stored));
    ok(restructure());
  }

  private int restructure() {
    return OutlineJni.restructure(
        context(), (short) 1, StoreRule.APPLICATION, StoreRule.DATABASE);
  }

  private ContextHandle context() {
    return store.session().context();
  }

  /** The status of a call during which files stay small. */
  private static int limited(IntSupplier call) throws IOException, InterruptedException {
    limitFileSize(Integer.toString(LIMIT));
    try {
      return call.getAsInt();
    } finally {
      limitFileSize("unlimited");
    }
  }

  /** Sets the size that this process may write to one file. */
  private static void limitFileSize(String bytes) throws IOException, InterruptedException {
    String process = Files.readSymbolicLink(Paths.get("/proc/self")).toString();
    assertEquals(0, new ProcessBuilder("prlimit", "--pid", process, "--fsize=" + bytes + ":")
        .inheritIO().start().waitFor());
  }
}
