package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.children;
import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Random;
import org.junit.Rule;
import org.junit.Test;

/** Copies of subtrees. */
public class CopyTest {
  private static final int COPY_FAILED = 1060013;
  private static final int RANDOM_MEMBERS = 400;

  @Rule public final StoreRule store = new StoreRule();

  /** Copies a subtree to its end; gives the handle of the copy. */
  private static int copy(
      OpenOutline open, String target, int source, boolean asSibling, int members) {
    CopyRequest request = new CopyRequest();
    List<DefaultMember> copies = new ArrayList<>();
    ok(OutlineJni.copyMember(open.instance(), open.handle(), target, 0, null, source, asSibling,
        request, copies));
    while (!request.isFinished()) {
      int before = request.getCount();
      ok(OutlineJni.copyContinue(open.instance(), open.handle(), request));
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
      int product = create(open, 0, 0, "Product");
      int colour = create(open, 0, product, "Colour");
      ok(OutlineJni.assignMemberDimensionCategory(open.instance(), open.handle(), colour,
          new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
      ok(OutlineJni.assignAttributeDimension(open.instance(), open.handle(), product, colour));
      create(open, colour, 0, "Red");
      int top = create(open, product, 0, "Top");
      List<Integer> tree = new ArrayList<>(Collections.singletonList(top));
      for (int i = 1; i <= members; i++) {
        // Half of them below one of the last few, so that the tree is deep as well as wide.
        int parent = tree.get(random.nextBoolean() ? random.nextInt(tree.size())
            : tree.size() - 1 - random.nextInt(Math.min(3, tree.size())));
        int member = create(open, parent, 0, "Member " + i);
        decorate(open, random, member);
        tree.add(member);
      }
      List<String> source = describe(open, top);
      assertEquals(tree.size(), source.size());
      int copy = copy(open, "Product", top, false, tree.size());
      assertEquals(source, describe(open, copy));
      assertEquals("first child of its target", copy,
          children(open, "Product").get(0).getHandle());
      assertEquals(source, describe(open, copy(open, "Top", top, true, tree.size())));
      // A leaf as the target: its copy would be part of what is copied.
      assertEquals(COPY_FAILED, OutlineJni.copyMember(open.instance(), open.handle(), null,
          tree.get(tree.size() - 1), null, top, false, new CopyRequest(), new ArrayList<>()));
      assertEquals("the source is as it was", source, describe(open, top));
    }
  }

  /** Gives a member some of what a member can have. */
  private static void decorate(OpenOutline open, Random random, int member) {
    ok(OutlineJni.assignMemberConsolidation(open.instance(), open.handle(), member,
        new Consolidation((short) random.nextInt(6))));
    if (random.nextInt(3) == 0) {
      ok(OutlineJni.assignMemberComment(open.instance(), open.handle(), member,
          "comment " + random.nextInt()));
    }
    if (random.nextInt(3) == 0) {
      ok(OutlineJni.updateMemberFormula(open.instance(), open.handle(), member,
          random.nextInt() + ";"));
    }
    for (int i = random.nextInt(4); i > 0; i--) {
      ok(OutlineJni.setMemberUDA(open.instance(), open.handle(), member, "attribute " + i));
    }
    if (random.nextInt(3) == 0) {
      ok(OutlineJni.assignAttributeMember(open.instance(), open.handle(), member, "Red"));
    }
  }

  /** The members of a subtree in outline order: everything about them that a copy takes over. */
  private static List<String> describe(OpenOutline open, int root) {
    List<String> lines = new ArrayList<>();
    List<MemberRequestResult> read = new ArrayList<>();
    List<MemberRequest> asked = Collections.singletonList(new MemberRequest(root));
    ok(OutlineJni.getMemberUDASBlock(open.instance(), open.handle(), asked, read));
    ok(OutlineJni.getMemberAttributesBlock(open.instance(), open.handle(), asked, read));
    ok(OutlineJni.getMemberFormulaBlock(open.instance(), open.handle(), asked, read));
    StringBuilder line = new StringBuilder();
    read.forEach(result -> line.append(' ').append(result.getData()));
    List<DefaultMember> children = new ArrayList<>();
    ok(OutlineJni.getChildrenEx(open.instance(), open.handle(), "", root, children));
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
  public void copiesAsDimensionsAreNamedApart() {
    try (OpenOutline open = store.edit()) {
      create(open, create(open, 0, 0, "Product"), 0, "Cola");
      for (String name : new String[] {"Copy of Cola", "Copy (2) of Cola"}) {
        assertFalse(OutlineJni.findMember(open.handle(), name));
        ok(OutlineJni.copyMember(open.instance(), open.handle(), "Product", 0, "Cola", 0, true,
            new CopyRequest(), new ArrayList<>()));
        assertTrue(OutlineJni.findMember(open.handle(), name));
      }
    }
  }
}
