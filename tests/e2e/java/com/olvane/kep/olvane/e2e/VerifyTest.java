package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
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
    ok(OutlineJni.verifyOutlineEdit(open.instance(), store.session().context(), open.handle(),
        findings));
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

      int year = create(open, 0, 0, "Year");
      int first = create(open, year, 0, "First");
      int second = create(open, year, first, "Second");
      int month = create(open, 0, year, "Month");
      assertEquals(Collections.emptyList(), verify(open));
      for (int dimension : new int[] {year, month}) {
        ok(OutlineJni.assignMemberDimensionCategory(instance, outline, dimension,
            new DimensionCategory(DimensionCategory.TIME), null));
      }
      ok(OutlineJni.assignMemberAlias(instance, outline, first, "Default", "month"));
      ok(OutlineJni.renameMember(instance, outline, second, "+First"));
      ok(OutlineJni.assignMemberShare(instance, outline, second, new Share(Share.SHARED)));
      assertEquals(Arrays.asList(
          "The outline has more than one time dimension.",
          "Member First has an alias that is another member's name.",
          "Member +First has a name that begins with a character that formulas read as syntax.",
          "Member +First is marked as shared but its dimension has no unshared member of that"
              + " name.",
          "Member Month is a further time dimension."), verify(open));

      ok(OutlineJni.assignMemberDimensionCategory(instance, outline, month,
          new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
      int red = create(open, month, 0, "Red");
      ok(OutlineJni.updateMemberFormula(instance, outline, red, "1;"));
      ok(OutlineJni.deleteMember(instance, outline, second));
      ok(OutlineJni.renameMember(instance, outline, first, "a"));
      ok(OutlineJni.assignMemberShare(instance, outline, first, new Share(Share.LABEL_ONLY)));
      ok(OutlineJni.assignMemberAlias(instance, outline, first, "Default", "Same"));
      ok(OutlineJni.assignMemberAlias(instance, outline, red, "Default", "same"));
      assertEquals(Arrays.asList(
          "Member a is label only but has no children.",
          "Member a has an alias that another member has in the same table.",
          "Member Month is an attribute dimension that no base dimension is associated with.",
          "Member Red belongs to an attribute dimension but has a formula.",
          "Member Red has an alias that another member has in the same table."), verify(open));
    }
  }
}
