package com.olvane.kep.olvane.outline;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.CoreMatchers.instanceOf;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;
import static org.junit.Assert.fail;

import com.olvane.kep.olvane.standin.StatusException;
import java.util.Arrays;
import java.util.ConcurrentModificationException;
import java.util.Iterator;
import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.stream.Collectors;
import org.junit.Rule;
import org.junit.Test;

/** The facade's own rules: places, failures, life and threads. */
public class OutlineTest {
  @Rule public final OutlineRule rule = new OutlineRule();

  private static String names(Outline outline, Member root) {
    return outline.subtree(root, Details.NONE).map(Member::name).collect(Collectors.joining(" "));
  }

  private static <E extends Exception> String messageOf(Class<E> type, Runnable call) {
    try {
      call.run();
    } catch (Exception e) {
      assertThat(e, instanceOf(type));
      return e.getMessage();
    }
    throw new AssertionError("no " + type.getSimpleName());
  }

  @Test
  public void membersGoWhereAPlaceSays() {
    Outline outline = rule.outline;
    Member product = rule.dimension;
    Member c = outline.create(Place.firstBelow(product), new NewMember("c"));
    Member a = outline.create(Place.before(c), new NewMember("a"));
    Member b = outline.create(Place.behind(a), new NewMember("b"));
    outline.create(Place.lastBelow(product), new NewMember("d"));
    outline.create(Place.lastBelow(b), new NewMember("b1"));
    assertEquals("Product a b b1 c d", names(outline, product));
    outline.move(b, Place.lastBelow(product));
    outline.move(c, Place.before(a));
    outline.move(a, Place.firstBelow(b));
    outline.move(a, Place.before(a));
    assertEquals("Product c d b a b1", names(outline, product));
    Member year = outline.create(Place.behind(product), new NewMember("Year"));
    Member scenario = outline.create(Place.lastDimension(), new NewMember("Scenario"));
    outline.move(scenario, Place.firstDimension());
    outline.move(product, Place.behind(year));
    assertEquals("[Scenario, Year, Product]", outline.dimensions(Details.NONE).toString());
    outline.sortChildren(product, true);
    assertEquals("Product b a b1 c d", names(outline, product));
    outline.rename(a, "z");
    outline.delete(c);
    assertEquals("Product b z b1 d", names(outline, product));
    assertEquals("[b, Product]", outline.ancestors(a, Details.NONE).toString());
  }

  @Test
  public void changesSetAndRemoveAndWhatIsNotSetStays() {
    Outline outline = rule.outline;
    Member member = outline.create(Place.firstBelow(rule.dimension), new NewMember("m",
        new Changes().consolidation(Consolidation.PERCENT).uda("one").uda("two")
            .alias("Default", "M").formula("1;").comment("c").twoPass(true)));
    Details all = Details.NONE.udas().formula().aliases("Default");
    outline.change(member, new Changes().withoutUda("one").uda("three").formula("")
        .timeBalance(TimeBalance.LAST));
    Member now = outline.read(member, all);
    assertEquals("[two, three]", now.udas().toString());
    assertEquals("", now.formula());
    assertEquals("M", now.alias("Default"));
    assertEquals(Consolidation.PERCENT, now.consolidation());
    assertEquals('%', now.consolidation().sign());
    assertEquals(TimeBalance.LAST, now.timeBalance());
    assertTrue(now.isTwoPass());
    Member twin = outline.create(Place.behind(member), new NewMember("twin", Changes.like(now)
        .alias("Default", "T")));
    Member read = outline.read(twin, all);
    assertEquals("[two, three]", read.udas().toString());
    assertEquals(Consolidation.PERCENT, read.consolidation());
    assertEquals("c", read.comment());
  }

  @Test
  public void failuresNameStatusMemberFieldAndLimit() {
    Outline outline = rule.outline;
    char[] many = new char[81];
    Arrays.fill(many, 'x');
    try {
      outline.rename(rule.dimension, new String(many));
      fail();
    } catch (OutlineException e) {
      assertEquals(Status.REFUSED, e.status());
      assertEquals("Product", e.member());
      assertEquals("new name", e.field());
      assertEquals(80, e.limit());
      assertThat(e.getMessage(), containsString("takes 81 bytes, at most 80 fit"));
    }
    Member a = outline.create(Place.firstBelow(rule.dimension), new NewMember("a"));
    outline.delete(a);
    for (Runnable stale : new Runnable[] {
      () -> outline.read(a, Details.NONE), () -> outline.rename(a, "b"), () -> outline.delete(a),
      () -> outline.page(a, 0, 1, Details.NONE), () -> outline.position(a),
      () -> outline.create(Place.behind(a), new NewMember("b")),
      () -> outline.change(a, new Changes().comment("c"))
    }) {
      assertThat(messageOf(OutlineException.class, stale), containsString("no such member"));
    }
    assertThat(messageOf(IllegalStateException.class, () -> rule.dimension.formula()),
        containsString("was not read"));
    assertEquals("Status 4711 of the outline API.", Status.sentence(4711));
    assertFalse(outline.find("nobody").isPresent());
  }

  private static void assertSays(String beginning, Runnable call) {
    String message = messageOf(OutlineException.class, call);
    assertTrue(message, message.startsWith("Cannot " + beginning + ": "));
  }

  @Test
  public void failuresReadAsSentences() {
    Outline outline = rule.outline;
    Member product = rule.dimension;
    Changes nowhere = new Changes().alias("Nowhere", "x");
    Member a = outline.create(Place.firstBelow(product), new NewMember("a"));
    outline.delete(a);
    assertSays("read a", () -> outline.read(a, Details.NONE));
    assertSays("read members", () -> outline.read(new int[] {a.handle()}, Details.NONE));
    assertSays("read the children of a", () -> outline.children(a, Details.NONE).count());
    assertSays("read what is below a", () -> outline.subtree(a, Details.NONE).count());
    assertSays("read the dimensions (alias)",
        () -> outline.dimensions(Details.NONE.aliases("Nowhere")));
    assertSays("change Product (alias)", () -> outline.change(product, nowhere));
    assertSays("create b (alias)",
        () -> outline.create(Place.firstBelow(product), new NewMember("b", nowhere)));
    assertSays("give the name b to a", () -> outline.rename(a, "b"));
    assertSays("search the outline of Test.Test for *", () -> outline.match("*", a, null));
    assertSays("remove the name of level 7 of Product", () -> outline.levels().remove(product, 7));
    assertSays("create the alias table Default", () -> outline.aliasTables().create("Default"));
    assertSays("open the outline of Test.None for editing", () -> rule.store.edit("Test", "None"));
  }

  @Test
  public void whatIsClosedOrBrowsedOrOpenTwiceSaysSo() {
    Outline outline = rule.outline;
    assertTrue(outline.hasUnsavedEdits());
    assertThat(messageOf(IllegalStateException.class,
        () -> rule.store.edit(OutlineRule.APPLICATION, OutlineRule.DATABASE)),
        containsString("open for editing already"));
    Outline browsed = rule.reopened();
    assertFalse(outline.hasUnsavedEdits());
    assertThat(messageOf(IllegalStateException.class,
        () -> browsed.create(Place.firstDimension(), new NewMember("x"))),
        containsString("open for browsing"));
    try (Store other = Store.open(rule.address, "other")) {
      assertThat(messageOf(OutlineException.class,
          () -> other.edit(OutlineRule.APPLICATION, OutlineRule.DATABASE)),
          containsString("lock"));
    }
    outline.close();
    outline.close();
    assertThat(messageOf(IllegalStateException.class, outline::save), containsString("is closed"));
    assertThat(messageOf(IllegalStateException.class,
        () -> outline.page(rule.dimension, 0, 1, Details.NONE)), containsString("is closed"));
    rule.store.edit(OutlineRule.APPLICATION, OutlineRule.DATABASE);
    rule.store.close();
    assertFalse(browsed.isOpen());
    assertThat(messageOf(IllegalStateException.class,
        () -> rule.store.create("New", "New")), containsString("closed"));
  }

  @Test
  public void databasesAndOutlinesKeptAside() {
    Store store = rule.store;
    Outline outline = rule.outline;
    outline.save();
    store.create("Other", "B");
    store.create("Other", "A");
    assertEquals("[Other.A, Other.B, Test.Test]", store.databases().toString());
    assertEquals(1, store.databases().get(2).members());
    assertTrue(store.databases().get(2).size() > 0);
    assertEquals(0, store.databases().get(0).size());
    assertEquals("tester", store.locks().get(0).user());
    messageOf(IllegalStateException.class, () -> store.delete("Test", "Test"));
    try (Store other = Store.open(rule.address, "other")) {
      assertThat(messageOf(StatusException.class, () -> other.delete("Test", "Test")),
          containsString("lock"));
    }
    store.delete("Other", "A");
    assertThat(messageOf(StatusException.class, () -> store.delete("Other", "A")),
        containsString("no such application or database"));

    LocalObjects aside = store.localObjects();
    assertTrue(aside.list().isEmpty());
    outline.create(Place.firstBelow(rule.dimension), new NewMember("unsaved"));
    aside.write(outline, "work");
    assertTrue(outline.hasUnsavedEdits());
    assertEquals(2, aside.list().get(0).members());
    assertEquals("work", aside.list().get(0).database());
    assertEquals("[Other.B, Test.Test]", store.databases().toString());
    try (Outline again = aside.open("work")) {
      assertEquals("Product unsaved", names(again, again.dimensions(Details.NONE).get(0)));
      again.delete(again.find("unsaved").get());
      again.save();
      assertEquals(1, aside.list().get(0).members());
      aside.remove("work");
      assertTrue(aside.list().isEmpty());
      // Back to its database, which is open here.
      again.create(Place.lastBelow(again.find("Product").get()), new NewMember("written back"));
      aside.writeBack(again, "Test", "Test");
    }
    try (Outline stored = store.browse("Test", "Test")) {
      assertTrue(stored.find("written back").isPresent());
    }

    store.breakLock("Test/Test/Test");
    OutlineException gone = assertThrows(OutlineException.class, outline::save);
    assertTrue(gone.status() == Status.LOCK_LOST || gone.status() == Status.NOT_LOCKED);
    assertFalse(outline.lockAgain(() -> false));
    assertEquals(0, store.locks().size());
    assertTrue(outline.lockAgain(() -> store.locks().size() == 1));
    outline.save();
  }

  @Test
  public void anEditEndsStreamsAndSearchesInBetween() {
    Outline outline = rule.outline;
    outline.access.useBuffersOf(1000);
    outline.build(Place.firstBelow(rule.dimension), OutlineRule.numbered("m", 100));
    Iterator<Member> members = outline.children(rule.dimension, Details.NONE).iterator();
    members.next();
    SearchRun search = outline.search(new Search("m").membersPerBatch(10), Details.NONE);
    search.next();
    outline.rename(rule.dimension, "P");
    messageOf(ConcurrentModificationException.class, () -> {
      while (members.hasNext()) {
        members.next();
      }
    });
    messageOf(ConcurrentModificationException.class, search::next);
  }

  @Test
  public void searchesFindInBatchesAndCopiesCanBeCancelled() {
    Outline outline = rule.outline;
    Member a = outline.create(Place.firstBelow(rule.dimension),
        new NewMember("a").below(OutlineRule.numbered("item ", 50)));
    SearchRun search =
        outline.search(new Search("ITEM 1").membersPerBatch(7), Details.NONE.place());
    List<Member> found = search.stream().collect(Collectors.toList());
    assertEquals(11, found.size());
    assertEquals(a.handle(), found.get(0).parentHandle());
    assertTrue(search.isFinished());
    assertEquals(52, search.membersSearched());
    assertEquals(
        Arrays.asList(Arrays.asList("item 7", "a", rule.dimension.name())),
        outline.paths(new Search("ITEM 7").wholeWords()));
    messageOf(IllegalArgumentException.class, () -> outline.paths(new Search("x").formulas()));

    String before = names(outline, rule.dimension);
    CopyRun cancelled = outline.copy(a, Place.behind(a));
    assertTrue(cancelled.next());
    cancelled.cancel();
    assertEquals(before, names(outline, rule.dimension));
    CopyRun copy = outline.copy(a, Place.behind(a));
    Member copied = copy.finish();
    assertEquals(51, copy.copied());
    assertEquals(50, copied.childCount());
    assertSays("copy Product", () -> outline.copy(rule.dimension, Place.firstBelow(a)));
  }

  @Test
  public void threadsTakeTurnsAndClosingWaits() throws InterruptedException {
    Outline outline = rule.outline;
    outline.build(Place.firstBelow(rule.dimension), OutlineRule.numbered("m", 2000));
    AtomicInteger read = new AtomicInteger();
    AtomicInteger wrong = new AtomicInteger();
    Thread[] threads = new Thread[4];
    for (int i = 0; i < threads.length; i++) {
      threads[i] = new Thread(() -> {
        try {
          for (;;) {
            long count = outline.children(rule.dimension, Details.NONE).count();
            (count == 2000 ? read : wrong).incrementAndGet();
          }
        } catch (IllegalStateException closed) {
          // The way out.
        }
      });
      threads[i].start();
    }
    while (read.get() < 20 && wrong.get() == 0) {
      Thread.sleep(1);
    }
    outline.close();
    for (Thread thread : threads) {
      thread.join();
    }
    assertEquals(0, wrong.get());
  }
}
