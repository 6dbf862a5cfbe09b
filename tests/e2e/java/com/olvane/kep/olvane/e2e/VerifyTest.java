package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;

/** The sentences of verification say what is really wrong with an outline. */
public class VerifyTest {
  @Rule public final StoreRule store = new StoreRule();

  private List<String> verify(OpenOutline open) {
    List<VerifyFinding> findings = new ArrayList<>();
    check("verify", OutlineJni.verifyOutlineEdit(
        open.instance(), store.session().context(), open.handle(), findings));
    List<String> sentences = new ArrayList<>();
    findings.forEach(finding -> sentences.addAll(finding.getSentences()));
    return sentences;
  }

  @Test
  public void eachErrorHasItsSentence() {
    try (OpenOutline open = store.edit()) {
      InstanceHandle instance = open.instance();
      OutlineHandle outline = open.handle();
      assertEquals(Collections.singletonList(
          "The outline has no dimension but attribute dimensions."), verify(open));

      int year = StoreRule.create(open, 0, 0, "Year");
      int first = StoreRule.create(open, year, 0, "First");
      int second = StoreRule.create(open, year, first, "Second");
      assertEquals(Collections.emptyList(), verify(open));

      check("rename", OutlineJni.renameMember(instance, outline, second, "First"));
      assertEquals(Collections.singletonList(
          "Member First has the same name as an earlier sibling."), verify(open));
      check("rename", OutlineJni.renameMember(instance, outline, second, "+Second"));
      assertEquals(Collections.singletonList("Member +Second has a name that begins with a"
          + " character that formulas read as syntax."), verify(open));
      check("rename", OutlineJni.renameMember(instance, outline, second, "Second"));

      for (int member : new int[] {first, second}) {
        check("set the alias", OutlineJni.assignMemberAlias(
            instance, outline, member, "Default", "Either"));
      }
      assertEquals(Arrays.asList(
          "Member First has an alias that another member has in the same table.",
          "Member Second has an alias that another member has in the same table."), verify(open));
      check("set the alias",
          OutlineJni.assignMemberAlias(instance, outline, first, "Default", ""));
      check("set the alias",
          OutlineJni.assignMemberAlias(instance, outline, second, "Default", "first"));
      assertEquals(Collections.singletonList(
          "Member Second has an alias that is another member's name."), verify(open));
      check("set the alias",
          OutlineJni.assignMemberAlias(instance, outline, second, "Default", ""));

      check("share", OutlineJni.assignMemberShare(
          instance, outline, second, new Share(Share.LABEL_ONLY)));
      assertEquals(Collections.singletonList(
          "Member Second is label only but has no children."), verify(open));
      check("share", OutlineJni.assignMemberShare(
          instance, outline, second, new Share(Share.SHARED)));
      assertEquals(Collections.singletonList("Member Second is marked as shared but its dimension"
          + " has no unshared member of that name."), verify(open));
    }
  }

  @Test
  public void errorsOfDimensionsHaveSentencesToo() {
    try (OpenOutline open = store.edit()) {
      InstanceHandle instance = open.instance();
      OutlineHandle outline = open.handle();
      int year = StoreRule.create(open, 0, 0, "Year");
      int month = StoreRule.create(open, 0, year, "Month");
      for (int dimension : new int[] {year, month}) {
        check("set the category", OutlineJni.assignMemberDimensionCategory(instance, outline,
            dimension, new DimensionCategory(DimensionCategory.TIME), null));
      }
      assertEquals(Arrays.asList("The outline has more than one time dimension.",
          "Member Month is a further time dimension."), verify(open));

      check("set the category", OutlineJni.assignMemberDimensionCategory(instance, outline, month,
          new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
      int red = StoreRule.create(open, month, 0, "Red");
      check("set the formula", OutlineJni.updateMemberFormula(instance, outline, red, "1;"));
      assertEquals(Arrays.asList(
          "Member Month is an attribute dimension that no base dimension is associated with.",
          "Member Red belongs to an attribute dimension but has a formula."), verify(open));
    }
  }
}
