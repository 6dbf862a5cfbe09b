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
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import org.junit.Test;

/** Copies of real subtrees. */
public class CopyTest {
  private static final int COPY_FAILED = 1060013;

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

      CopyRequest request = new CopyRequest();
      List<DefaultMember> copies = new ArrayList<>();
      check("copy", OutlineJni.copyMember(open.instance(), open.handle(), "Geography", 0, country,
          0, false, request, copies));
      while (!request.isFinished()) {
        int before = request.getCount();
        check("copy", OutlineJni.copyContinue(open.instance(), open.handle(), request));
        assertTrue("no more than five a call", request.getCount() - before <= 5);
      }
      assertEquals(source.size(), request.getCount());
      assertEquals("first child of its target", copies.get(0).getHandle(),
          StoreRule.children(open, "Geography").get(0).getHandle());
      assertEquals(source, describe(open, copies.get(0).getHandle()));
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
