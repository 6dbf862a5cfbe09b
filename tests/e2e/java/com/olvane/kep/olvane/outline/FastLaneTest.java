package com.olvane.kep.olvane.outline;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;
import static org.junit.Assert.fail;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.demo.DemoCommand;
import com.olvane.kep.olvane.defs.outline.AttributeType;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.nio.ByteBuffer;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Random;
import java.util.stream.Collectors;
import org.junit.Before;
import org.junit.Rule;
import org.junit.Test;
import picocli.CommandLine;

/** What the fast lane reads and makes is what the native methods read and make. */
public class FastLaneTest {
  @Rule public final OutlineRule rule = new OutlineRule();

  private Outline outline;

  @Before
  public void open() {
    outline = rule.outline;
    for (String table : RandomOutline.TABLES) {
      if (!table.equals("Default")) {
        StandinSession.check("create", OutlineJni.createAliasTable(
            outline.access.login.instance, outline.access.handle, table));
      }
    }
  }

  /** Every member, with every detail, as the fast lane reads it and as the native methods do. */
  private static void assertReadsLikeTheNatives(Outline outline) {
    NativeValues values = new NativeValues(outline);
    List<Member> dimensions = outline.dimensions(values.details());
    List<DefaultMember> expected = values.dimensions();
    assertEquals(expected.size(), dimensions.size());
    for (int i = 0; i < expected.size(); i++) {
      List<String> members = values.subtree(expected.get(i));
      List<Member> read = outline.subtree(dimensions.get(i), values.details())
          .collect(Collectors.toList());
      assertEquals(members, values.texts(read));
      int[] handles = read.stream().mapToInt(Member::handle).toArray();
      assertEquals(members, values.texts(outline.read(handles, values.details())));
      for (Member member : read) {
        List<Member> children = outline.children(member, Details.NONE.place())
            .collect(Collectors.toList());
        int previous = 0;
        for (Member child : children) {
          assertEquals(member.handle(), child.parentHandle());
          assertEquals(previous, child.previousHandle());
          previous = child.handle();
        }
      }
    }
  }

  @Test
  public void theDemosOutline() {
    String store = Settings.newFolder().toString();
    assertEquals(0, new CommandLine(new DemoCommand())
        .setCaseInsensitiveEnumValuesAllowed(true)
        .setOut(new PrintWriter(new StringWriter()))
        .setErr(new PrintWriter(new StringWriter()))
        .execute("--store", store, "--data", System.getProperty("e2e.data"), "--act", "life",
            "--countries", Integer.toString(Settings.scaled(300))));
    try (Store demo = Store.open(store, "tester"); Outline world = demo.browse("Demo", "World")) {
      assertReadsLikeTheNatives(world);
    }
  }

  private void makeAttributes() {
    Member colours = outline.create(Place.lastDimension(), new NewMember("Colours")
        .add(new NewMember("red")).add(new NewMember("blue")));
    StandinSession.check("category", OutlineJni.assignMemberDimensionCategory(
        outline.access.login.instance, outline.access.handle, colours.handle(),
        new DimensionCategory(DimensionCategory.ATTRIBUTE),
        new AttributeType(AttributeType.DIMENSION_DEFAULT)));
    StandinSession.check("associate", OutlineJni.assignAttributeDimension(
        outline.access.login.instance, outline.access.handle, rule.dimension.handle(),
        outline.find("Colours").get().handle()));
  }

  @Test
  public void randomMembersWithEveryDetail() {
    makeAttributes();
    for (long seed = 1; seed <= 4; seed++) {
      RandomOutline.Planned planned = new RandomOutline(seed).tree(4);
      Member parent = outline.create(
          Place.lastBelow(rule.dimension), new NewMember("made by natives " + seed));
      Member other = outline.create(
          Place.lastBelow(rule.dimension), new NewMember("made by the fast lane " + seed));
      RandomOutline.make(outline.access, parent.handle(), 0, planned);
      outline.access.useBuffersOf(seed == 1 ? 64 * 1024 : 1 << (int) (7 + seed));
      outline.build(Place.firstBelow(other),
          Collections.singletonList(RandomOutline.plan(planned)));
      assertEquals(anonymous(parent), anonymous(other));
      outline.change(other, new Changes().attribute("red").extendedComment("seed " + seed));
      assertEquals("seed " + seed,
          outline.read(other, Details.NONE.extendedComment()).extendedComment());
    }
    outline.access.useBuffersOf(64 * 1024);
    assertReadsLikeTheNatives(outline);
    try (Outline browsed = rule.reopened()) {
      assertReadsLikeTheNatives(browsed);
    }
  }

  /** The members below a parent without what tells two subtrees apart: handles and names. */
  private List<String> anonymous(Member parent) {
    NativeValues values = new NativeValues(outline);
    return outline.subtree(parent, values.details()).skip(1)
        .map(member -> values.text(member).replaceFirst("handle=\\d+, ", ""))
        .collect(Collectors.toList());
  }

  @Test
  public void buffersOfEverySmallSizeAndRecordsThatAreLarger() {
    char[] megabyte = new char[1 << 20];
    Arrays.fill(megabyte, '\u4e16');
    String formula = new String(megabyte) + ";";
    Changes large = new Changes().formula(formula).extendedComment("\uD83C\uDF0D");
    List<NewMember> members = new ArrayList<>();
    members.add(new NewMember("first"));
    members.add(new NewMember("large", large));
    members.add(new NewMember("last", new Changes().uda("one").uda("two")));
    outline.build(Place.firstBelow(rule.dimension), members);
    Details details = Details.NONE.formula().extendedComment().udas();
    for (int size = OutlineBulk.REQUEST + 4; size < 400; size += size < 330 ? 13 : 1) {
      outline.access.useBuffersOf(size);
      List<Member> read = outline.children(rule.dimension, details).collect(Collectors.toList());
      assertEquals("[first, large, last]", read.toString());
      assertEquals(formula, read.get(1).formula());
      assertEquals("\uD83C\uDF0D", read.get(1).extendedComment());
      assertEquals("[one, two]", read.get(2).udas().toString());
      assertEquals(3, outline.page(rule.dimension, 0, 10, Details.NONE).members().size());
    }
  }

  @Test
  public void pagesFromPositionsAndSiblingsMeetEndToEnd() {
    int count = 1000;
    outline.build(Place.firstBelow(rule.dimension), OutlineRule.numbered("m", count));
    List<Member> all = outline.children(rule.dimension, Details.NONE).collect(Collectors.toList());
    assertEquals(count, all.size());
    List<Member> paged = new ArrayList<>();
    Page page = outline.page(rule.dimension, 0, 7, Details.NONE);
    paged.addAll(page.members());
    while (page.hasNext()) {
      page = page.next();
      paged.addAll(page.members());
    }
    assertEquals(all, paged);
    assertTrue(page.next().members().isEmpty());
    assertEquals(all.subList(990, 1000),
        outline.page(rule.dimension, 990, 100, Details.NONE).members());
    assertFalse(outline.page(rule.dimension, 990, 10, Details.NONE).hasNext());
    assertTrue(outline.page(rule.dimension, 1000, 1, Details.NONE).members().isEmpty());
    assertEquals(all.subList(500, 503),
        outline.pageFrom(rule.dimension, all.get(500), 3, Details.NONE).members());
    assertEquals(500, outline.position(all.get(500)));
  }

  @Test
  public void aRefusedMemberLeavesThoseBeforeItAndNothingOfItself() {
    List<NewMember> members = new ArrayList<>();
    members.add(new NewMember("a").add(new NewMember("b")));
    members.add(new NewMember("c", new Changes().alias("Nowhere", "x")));
    members.add(new NewMember("d"));
    try {
      outline.build(Place.firstBelow(rule.dimension), members);
      fail();
    } catch (OutlineException e) {
      assertEquals("c", e.member());
      assertEquals("alias", e.field());
      assertEquals(outline.find("a").get().handle(), e.made()[0]);
      assertEquals(outline.find("b").get().handle(), e.made()[1]);
      assertEquals(2, e.made().length);
    }
    assertEquals("[Product, a, b]", outline.subtree(rule.dimension, Details.NONE)
        .collect(Collectors.toList()).toString());
  }

  @Test
  public void whatIsNoRequestIsRefusedAndNothingHappens() {
    ByteBuffer direct = ByteBuffer.allocateDirect(1000).order(OutlineBulk.ORDER);
    for (ByteBuffer buffer : new ByteBuffer[] {
      ByteBuffer.allocate(1000), direct.asReadOnlyBuffer(),
      ByteBuffer.allocateDirect(OutlineBulk.REQUEST - 1), direct
    }) {
      try {
        OutlineBulk.run(buffer);
        fail(buffer.toString());
      } catch (IllegalArgumentException expected) {
        assertTrue(expected.getMessage().startsWith("The buffer"));
      }
    }
    // Junk of every kind behind a version and handles that are right.
    Random random = new Random(1);
    for (int round = 0; round < 20_000; round++) {
      int end = OutlineBulk.REQUEST + random.nextInt(200);
      for (int at = 0; at < end; at++) {
        boolean small = random.nextInt(3) > 0;
        direct.put(at, (byte) (small ? random.nextInt(3) : random.nextInt()));
      }
      direct.putInt(0, OutlineBulk.VERSION);
      direct.putInt(OutlineBulk.OPERATION, 1 + random.nextInt(OutlineBulk.FIND + 1));
      direct.putInt(OutlineBulk.OUTLINE, outline.access.handle.getValue());
      direct.putInt(OutlineBulk.REQUEST_END, random.nextInt(10) == 0 ? random.nextInt() : end);
      direct.putInt(OutlineBulk.REQUEST, random.nextInt(3));
      try {
        OutlineBulk.run(direct);
      } catch (IllegalArgumentException expected) {
        // Most are.
      }
    }
    assertReadsLikeTheNatives(outline);
  }

  /** A million members in the long runs. */
  @Test
  public void manyMembersAreMadeStoredAndReadInOrder() {
    int count = Settings.scaled(20_000);
    int[] made =
        outline.build(Place.firstBelow(rule.dimension), OutlineRule.numbered("Member ", count));
    assertEquals(count, made.length);
    try (Outline stored = rule.reopened()) {
      Member product = stored.dimensions(Details.NONE).get(0);
      int[] next = {0};
      stored.children(product, Details.NONE).forEach(
          member -> assertEquals("Member " + next[0]++, member.name()));
      assertEquals(count, next[0]);
      Page last = stored.page(product, count - 1, 10, Details.NONE);
      assertEquals("Member " + (count - 1), last.members().get(0).name());
      assertEquals(count - 1, stored.position(last.members().get(0)));
    }
  }

  @Test
  public void aChainDeeperThanAStack() {
    int depth = 50_000;
    int[] number = {0};
    NewMember top = new NewMember("n0");
    NewMember at = top;
    while (++number[0] < depth) {
      NewMember next = new NewMember("n" + number[0]);
      at.add(next);
      at = next;
    }
    assertEquals(depth,
        outline.build(Place.firstBelow(rule.dimension), Collections.singletonList(top)).length);
    assertEquals(depth + 1, outline.subtree(rule.dimension, Details.NONE).count());
  }
}
