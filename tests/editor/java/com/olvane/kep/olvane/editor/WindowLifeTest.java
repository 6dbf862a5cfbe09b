package com.olvane.kep.olvane.editor;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.CoreMatchers.startsWith;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Store;
import java.io.IOException;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.lang.reflect.InvocationTargetException;
import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.atomic.AtomicReference;
import java.util.stream.IntStream;
import javax.swing.JLabel;
import javax.swing.SwingUtilities;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.RuleChain;

/** Large outlines, other processes, full disks: what a window lives through. */
public class WindowLifeTest {
  private static final int MOST_SECONDS_FOR_MANY = 8;
  private static final int WIDE = 100_000;
  /** The event thread works no longer than this at once; measured by its processor time. */
  private static final long LONGEST_WORK_MILLIS = 300;
  /** Nor does it wait longer for others, which takes its time on a busy machine. */
  private static final long LONGEST_PAUSE_MILLIS = 2000;

  private final WindowRule screen = new WindowRule();
  private final WindowOutline open = new WindowOutline();
  @Rule public final RuleChain rules = RuleChain.outerRule(screen).around(open);

  private final RobotUser user = screen.user;

  private String dialogText(String part) {
    return user.find(JLabel.class, "a sentence with " + part,
        one -> one.getText() != null && one.getText().contains(part)).getText();
  }

  /** Makes the outline before a window has it: one dimension with so many members. */
  private void fill(int members) {
    try (Outline outline = open.store.edit("Test", "Test")) {
      outline.create(Place.firstDimension(), new NewMember("Product"));
      Member product = outline.find("Product").get();
      outline.build(Place.firstBelow(product), () -> IntStream.range(0, members)
          .mapToObj(i -> new NewMember("Member " + i, new Changes().comment("number " + i)))
          .iterator());
      outline.save();
    }
  }

  private String lastRow() {
    return open.tree.getPathForRow(open.tree.getRowCount() - 1).getLastPathComponent().toString();
  }

  /** Another virtual machine of this class path, which runs a main class. */
  private static Process other(String... arguments) throws IOException {
    List<String> command =
        new ArrayList<>(Arrays.asList(System.getProperty("e2e.java").split("\\|")));
    command.addAll(Arrays.asList("-cp", System.getProperty("java.class.path"),
        "-Djava.library.path=" + System.getProperty("java.library.path"),
        "-Djava.io.tmpdir=" + System.getProperty("java.io.tmpdir"), "-Deditor.pause=100"));
    command.addAll(Arrays.asList(arguments));
    return new ProcessBuilder(command).redirectError(ProcessBuilder.Redirect.INHERIT).start();
  }

  @Test
  public void aHundredThousandChildrenScrollWithoutPausesAndAreNotHeld() throws Exception {
    fill(WIDE);
    open.open(user);
    long[] longest = {0, 0};
    ThreadMXBean threads = ManagementFactory.getThreadMXBean();
    long events = RobotUser.onEventThread(() -> Thread.currentThread().getId());
    Thread watch = new Thread(() -> {
      try {
        while (!Thread.interrupted()) {
          long asked = System.nanoTime();
          long worked = threads.getThreadCpuTime(events);
          SwingUtilities.invokeAndWait(() -> {});
          longest[0] = Math.max(longest[0], threads.getThreadCpuTime(events) - worked);
          longest[1] = Math.max(longest[1], System.nanoTime() - asked);
          Thread.sleep(10);
        }
      } catch (InterruptedException | InvocationTargetException e) {
        // The test is over.
      }
    });
    user.click(open.tree, user.row(open.tree, "Product"));
    watch.start();
    user.key("RIGHT");
    user.waitFor("the children", () -> open.tree.getRowCount() == WIDE + 1);
    for (int i = 0; i < 20; i++) {
      user.key("PAGE_DOWN");
    }
    user.key("END");
    user.waitFor("the last one", () -> lastRow().equals("Member " + (WIDE - 1)));
    user.wheel(open.tree, -30);
    watch.interrupt();
    watch.join();
    assertTrue("the event thread worked for " + longest[0] / 1_000_000 + " ms",
        longest[0] < LONGEST_WORK_MILLIS * 1_000_000);
    assertTrue("the window was frozen for " + longest[1] / 1_000_000 + " ms",
        longest[1] < LONGEST_PAUSE_MILLIS * 1_000_000);
    int held = RobotUser.onEventThread(() -> open.window.tree.model.byHandle.size());
    assertTrue(held + " nodes are held", held < 30_000);

    user.key("END");
    user.waitFor("the last one to be selected", () -> open.workspace.selection().size() == 1
        && open.workspace.selection().get(0).name().equals("Member " + (WIDE - 1)));
    user.key("shift UP");
    user.waitFor("two", () -> open.workspace.selection().size() == 2);
    user.key("DELETE");
    open.press(user, "Delete");
    user.waitFor("two less", () -> lastRow().equals("Member " + (WIDE - 3)));
    user.waitFor("their parent, once", () -> selected().equals("Product")
        && open.workspace.selection().size() == 1);
    clickTree();
    user.key("ctrl Z");
    user.waitFor("them to be back", () -> lastRow().equals("Member " + (WIDE - 1)));

    clickTree();
    user.key("END");
    user.key("shift HOME");
    user.waitFor("as many as can be", () -> open.workspace.selection().size() == OutlineTree.SELECTABLE);
    long began = System.nanoTime();
    RobotUser.onEventThread(() -> {
      List<Member> selected = open.workspace.selection();
      open.workspace.edit(MemberEdits.rename(selected.get(selected.size() - 1), "Last"));
      return null;
    });
    user.waitFor("the tree to show an edit", () -> lastRow().equals("Last"));
    assertTrue("their places are not counted one by one",
        System.nanoTime() - began < MOST_SECONDS_FOR_MANY * 1_000_000_000L);
    assertEquals(OutlineTree.SELECTABLE, (int) RobotUser.onEventThread(open.tree::getSelectionCount));
    clickTree();
    user.key("ctrl Z");
    user.waitFor("its name to be back", () -> lastRow().equals("Member " + (WIDE - 1)));

    clickTree();
    user.key("HOME");
    user.key("DOWN");
    user.key("shift END");
    user.key("DELETE");
    assertThat(dialogText("Delete "), containsString("Delete 10,000 members?"));
    open.press(user, "Cancel");
    clickTree();

    user.key("ctrl 1");
    user.waitFor("the dimension alone", () -> open.tree.getRowCount() == 1);
    user.key("ctrl F");
    user.type("member 5678");
    // Itself and those with one more digit.
    user.waitFor("the hits", () -> "1 of 11".equals(text("search count")));
    user.waitFor("the first hit to be selected", () -> selected().equals("Member 5678"));
    user.waitFor("it to be seen", this::isSelectionInView);
    user.key("F3");
    user.waitFor("the next one", () -> selected().equals("Member 56780"));
    user.key("shift F3");
    user.key("shift F3");
    user.waitFor("the last one", () -> selected().equals("Member 56789"));
    assertTrue("the hit in view", isSelectionInView());
    user.wheel(open.tree, -100);
    user.waitFor("the selection out of view", () -> !isSelectionInView());
    user.key("ctrl J");
    user.waitFor("the selection in view again", this::isSelectionInView);
  }

  /** Brings the keyboard back after a dialog: nobody manages the windows here. */
  private void clickTree() {
    user.click(open.tree, RobotUser.onEventThread(open.tree::getVisibleRect));
    user.waitFor("the keyboard in the tree", () -> open.tree.isFocusOwner());
  }

  private boolean isSelectionInView() {
    return open.tree.getSelectionPath().getLastPathComponent().toString().equals(selected())
        && open.tree.getVisibleRect().intersects(
            open.tree.getPathBounds(open.tree.getSelectionPath()));
  }

  private String selected() {
    return open.workspace.selection().isEmpty() ? ""
        : open.workspace.selection().get(0).name();
  }

  private static String text(String name) {
    JLabel label = RobotUser.showing(JLabel.class, one -> name.equals(one.getName()));
    return label == null ? "" : label.getText();
  }

  @Test
  public void workThatWasNotSavedOutlivesTheProgram() throws Exception {
    fill(3);
    Process killed = other(KilledEditor.class.getName(), open.folder);
    assertEquals("killed in the middle", KilledEditor.EXIT, killed.waitFor());

    System.setProperty("editor.pause", "100");
    open.openBy(user, () -> {
      assertThat(dialogText("unsaved work"), containsString("Test.Test"));
      open.press(user, "Restore");
      return null;
    });
    System.clearProperty("editor.pause");
    open.expect(user, "Product(Member 0 Member 1 Member 2 Precious)");
    assertTrue("it is not saved yet", open.workspace.history.dirty());
    assertThat("what was being typed", open.workspace.outline.find("Precious",
        MemberParts.all(open.workspace.outline)).get().comment(), startsWith("h"));
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("RIGHT");
    user.click(open.tree, user.row(open.tree, "Precious"));
    user.key("ctrl N");
    open.name(user, "More");
    open.expect(user, "Product(Member 0 Member 1 Member 2 Precious More)");
    user.key("ctrl S");
    user.waitFor("it to be saved", () -> !open.workspace.history.dirty());
    user.waitFor("nothing to be kept any more", () -> kept() == 0);
    user.key("DELETE");
    user.waitFor("the edit to be kept", () -> kept() == 1);
    user.key("ctrl Z");
    user.waitFor("nothing to be kept again", () -> kept() == 0);
    user.key("ctrl W");
    user.waitFor("the window to close", () -> !open.window.frame.isDisplayable());
    try (Store again = Store.open(open.folder, "tester");
        Outline saved = again.browse("Test", "Test")) {
      assertEquals(
          "Product(Member 0 Member 1 Member 2 Precious More)", WindowOutline.shape(saved));
    }
  }

  private int kept() {
    return open.store.localObjects().list().size();
  }

  @Test
  public void whatCannotBeOpenedIsTold() throws Exception {
    AtomicReference<Boolean> opened = new AtomicReference<>();
    SwingUtilities.invokeLater(
        () -> new Editor(open.store).open("Test", "Nothing", null, opened::set));
    dialogText("Nothing");
    assertEquals("while it is being read", null, opened.get());
    open.press(user, "OK");
    user.waitFor("the end of it", () -> Boolean.FALSE.equals(opened.get()));
  }

  @Test
  public void anOutlineThatAnotherProcessEditsCanBeRead() throws Exception {
    fill(2);
    Process peer = other(LockHolder.class.getName(), open.folder);
    assertTrue(peer.getInputStream().read() >= 0);
    open.openBy(user, () -> {
      assertThat(dialogText("is being edited by somebody else"), containsString("Test.Test"));
      open.press(user, "Open to Read");
      return null;
    });
    open.expect(user, "Product(Member 0 Member 1)");
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("RIGHT");
    user.click(open.tree, user.row(open.tree, "Member 0"));
    user.key("DELETE");
    user.key("ctrl N");
    open.expect(user, "Product(Member 0 Member 1)");
    peer.getOutputStream().close();
    assertEquals(0, peer.waitFor());
  }

  @Test
  public void aFullDiskIsToldAndTheWorkCanBeSavedLater() throws Exception {
    fill(2000);
    open.open(user);
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("ctrl shift N");
    open.name(user, "New");
    user.waitFor("the new member", () -> open.workspace.members() == 2002);
    limitFileSize("16384");
    try {
      user.key("ctrl S");
      assertThat(dialogText("The disk is full"), containsString("save the outline"));
    } finally {
      limitFileSize("unlimited");
    }
    open.press(user, "OK");
    assertTrue(open.workspace.history.dirty());
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("ctrl S");
    user.waitFor("it to be saved", () -> !open.workspace.history.dirty());
    try (Outline saved = open.store.browse("Test", "Test")) {
      assertEquals(2001, saved.find("Product").get().childCount());
    }
  }

  @Test
  public void aLockThatIsGoneIsTakenAgainUnlessSomebodySavedSince() throws Exception {
    fill(2);
    open.open(user);
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("ctrl shift N");
    open.name(user, "Mine");
    open.store.breakLock("Test/Test/Test");
    user.key("ctrl S");
    dialogText("not locked for you any more");
    user.waitFor("the status line to tell", () -> "Not locked".equals(text("lock")));
    open.press(user, "Take the Lock and Save");
    user.waitFor("it to be saved", () -> !open.workspace.history.dirty());
    user.waitFor("the lock to be back", () -> "Locked by tester".equals(text("lock")));

    clickTree();
    user.key("alt UP");
    user.waitFor("the edit", () -> open.workspace.history.dirty());
    open.store.breakLock("Test/Test/Test");
    try (Store peer = Store.open(open.folder, "peer"); Outline theirs = peer.edit("Test", "Test")) {
      theirs.create(Place.lastBelow(theirs.find("Product").get()), new NewMember("Theirs"));
      theirs.save();
    }
    user.key("ctrl S");
    open.press(user, "Take the Lock and Save");
    dialogText("was saved by somebody else since");
    open.press(user, "Cancel");
    try (Outline saved = open.store.browse("Test", "Test")) {
      assertEquals("Product(Member 0 Member 1 Mine Theirs)", WindowOutline.shape(saved));
      assertEquals(0, open.store.locks().size());
    }
  }

  /** Sets the size that this process may write to one file. */
  private static void limitFileSize(String bytes) throws IOException, InterruptedException {
    String process = Files.readSymbolicLink(Paths.get("/proc/self")).toString();
    assertEquals(0, new ProcessBuilder("prlimit", "--pid", process, "--fsize=" + bytes + ":")
        .inheritIO().start().waitFor());
  }
}
