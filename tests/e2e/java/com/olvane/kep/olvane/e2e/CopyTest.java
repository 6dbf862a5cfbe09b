package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNotEquals;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import java.util.Random;
import org.junit.Rule;
import org.junit.Test;

/** Copies of real subtrees. */
public class CopyTest {
  private static final int COPY_FAILED = 1060013;
  private static final int RANDOM_MEMBERS = 400;

  @Rule public final StoreRule store = new StoreRule();

  /** The country with most subdivisions, by name. */
  private static String largestCountry(OpenOutline open) {
    List<DefaultMember> countries = new ArrayList<>();
    for (DefaultMember initial : StoreRule.children(open, "Geography")) {
      countries.addAll(StoreRule.children(open, initial.getName()));
    }
    return countries.stream()
        .max(Comparator.comparingLong(DefaultMember::getChildCount))
        .get()
        .getName();
  }

  @Test
  public void subtreeOfACountryEqualsItsSourceMemberByMember() {
    try (StandinSession session = StandinSession.open(World.get().store(), "copier");
        OpenOutline open = OpenOutline.edit(session, "Demo", "Draft")) {
      String country = largestCountry(open);
      List<String> source = describe(open, open.find(country));
      assertTrue("a subtree worth copying", source.size() > 5);

      int copy = copy(open, "Geography", open.find(country), false, source.size());
      assertEquals("first child of its target", copy,
          StoreRule.children(open, "Geography").get(0).getHandle());
      assertEquals(source, describe(open, copy));
    }
  }

  /** Copies a subtree to its end; gives the handle of the copy. */
  private static int copy(
      OpenOutline open, String target, int source, boolean asSibling, int members) {
    CopyRequest request = new CopyRequest();
    List<DefaultMember> copies = new ArrayList<>();
    check("copy", OutlineJni.copyMember(open.instance(), open.handle(), target, 0, null, source,
        asSibling, request, copies));
    while (!request.isFinished()) {
      int before = request.getCount();
      check("copy", OutlineJni.copyContinue(open.instance(), open.handle(), request));
      assertTrue("no more than five a call", request.getCount() - before <= 5);
    }
    assertEquals(members, request.getCount());
    return copies.get(0).getHandle();
  }

  @Test
  public void randomTreesEqualTheirSourcesMemberByMember() {
    int members = Settings.scaled(RANDOM_MEMBERS);
    try (OpenOutline open = store.edit()) {
      Random random = new Random(20261124);
      int product = StoreRule.create(open, 0, 0, "Product");
      int colour = StoreRule.create(open, 0, product, "Colour");
      check("make an attribute dimension", OutlineJni.assignMemberDimensionCategory(
          open.instance(), open.handle(), colour,
          new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
      check("associate the dimensions", OutlineJni.assignAttributeDimension(
          open.instance(), open.handle(), product, colour));
      StoreRule.create(open, colour, 0, "Red");
      int top = StoreRule.create(open, product, 0, "Top");
      List<Integer> tree = new ArrayList<>(Collections.singletonList(top));
      for (int i = 1; i <= members; i++) {
        // Half of them below one of the last few, so that the tree is deep as well as wide.
        int parent = tree.get(random.nextBoolean() ? random.nextInt(tree.size())
            : tree.size() - 1 - random.nextInt(Math.min(3, tree.size())));
        int member = StoreRule.create(open, parent, 0, "Member " + i);
        decorate(open, random, member);
        tree.add(member);
      }
      List<String> source = describe(open, top);
      assertEquals(tree.size(), source.size());
      assertEquals(source, describe(open, copy(open, "Product", top, false, tree.size())));
      assertEquals(source, describe(open, copy(open, "Top", top, true, tree.size())));
      // A leaf as the target: its copy would be part of what is copied.
      assertEquals(COPY_FAILED, OutlineJni.copyMember(open.instance(), open.handle(), null,
          tree.get(tree.size() - 1), null, top, false, new CopyRequest(), new ArrayList<>()));
      assertEquals("the source is as it was", source, describe(open, top));
    }
  }

  /** Gives a member some of what a member can have. */
  private static void decorate(OpenOutline open, Random random, int member) {
    check("consolidation", OutlineJni.assignMemberConsolidation(open.instance(), open.handle(),
        member, new Consolidation((short) random.nextInt(6))));
    if (random.nextInt(3) == 0) {
      check("comment", OutlineJni.assignMemberComment(
          open.instance(), open.handle(), member, "comment " + random.nextInt()));
    }
    if (random.nextInt(3) == 0) {
      check("formula", OutlineJni.updateMemberFormula(
          open.instance(), open.handle(), member, random.nextInt() + ";"));
    }
    for (int i = random.nextInt(4); i > 0; i--) {
      check("attribute", OutlineJni.setMemberUDA(
          open.instance(), open.handle(), member, "attribute " + i));
    }
    if (random.nextInt(3) == 0) {
      check("associate", OutlineJni.assignAttributeMember(
          open.instance(), open.handle(), member, "Red"));
    }
  }

  /** The members of a subtree in outline order: everything about them that a copy takes over. */
  private static List<String> describe(OpenOutline open, int root) {
    List<String> lines = new ArrayList<>();
    List<MemberRequestResult> read = new ArrayList<>();
    List<MemberRequest> asked = Collections.singletonList(new MemberRequest(root));
    check("read the attributes",
        OutlineJni.getMemberUDASBlock(open.instance(), open.handle(), asked, read));
    check("read the associations",
        OutlineJni.getMemberAttributesBlock(open.instance(), open.handle(), asked, read));
    check("read the formula",
        OutlineJni.getMemberFormulaBlock(open.instance(), open.handle(), asked, read));
    StringBuilder line = new StringBuilder();
    read.forEach(result -> line.append(' ').append(result.getData()));
    List<DefaultMember> children = new ArrayList<>();
    check("list the children",
        OutlineJni.getChildrenEx(open.instance(), open.handle(), "", root, children));
    for (DefaultMember child : children) {
      line.append("; ").append(child.getName()).append(' ').append(child.getComment()).append(' ')
          .append(child.getConsolidation()).append(' ').append(child.getShare()).append(' ')
          .append(child.getChildCount()).append(' ').append(child.isAttributed());
    }
    lines.add(line.toString());
    children.forEach(child -> lines.addAll(describe(open, child.getHandle())));
    return lines;
  }

  @Test
  public void copyBelowItselfIsRefusedAndCopyAsDimensionIsNamedApart() {
    try (StandinSession session = StandinSession.open(World.get().store(), "copier");
        OpenOutline open = OpenOutline.edit(session, "Demo", "Copy")) {
      String country = largestCountry(open);
      String part = StoreRule.children(open, country).get(0).getName();
      List<DefaultMember> copies = new ArrayList<>();
      CopyRequest request = new CopyRequest();
      assertEquals(COPY_FAILED, OutlineJni.copyMember(open.instance(), open.handle(), part, 0,
          country, 0, false, request, copies));
      assertEquals(Collections.emptyList(), copies);
      for (String name : new String[] {"Copy of " + part, "Copy (2) of " + part}) {
        assertFalse(OutlineJni.findMember(open.handle(), name));
        check("copy as a dimension", OutlineJni.copyMember(open.instance(), open.handle(),
            "Geography", 0, part, 0, true, request, copies));
        assertNotEquals(0, open.find(name));
        assertTrue(request.isFinished());
      }
    }
  }
}
