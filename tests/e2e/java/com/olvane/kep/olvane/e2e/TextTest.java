package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.children;
import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.found;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNotEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;

/** Texts of all scripts and planes, from Java into a stored outline and back. */
public class TextTest {
  /** Two, three and six bytes a character; a flag of two surrogate pairs; a lone surrogate. */
  private static final String[] TEXTS = {
    "Ærøskøbing", "東京都", "😀 smile", "🇯🇵 日本", "a\u0000b", "lone \ud83d end", "e\u0301"
  };

  @Rule public final StoreRule store = new StoreRule();

  @Test
  public void namesAliasesFormulasAndCommentsComeBackAsTheyWere() {
    String table = "別名 😀";
    try (OpenOutline open = store.edit()) {
      InstanceHandle instance = open.instance();
      OutlineHandle outline = open.handle();
      ok(OutlineJni.createAliasTable(instance, outline, table));
      int dimension = create(open, 0, 0, "Texts");
      int previous = 0;
      for (String text : TEXTS) {
        previous = create(open, dimension, previous, text);
        ok(OutlineJni.assignMemberAlias(instance, outline, previous, table, "alias " + text));
        ok(OutlineJni.assignMemberComment(instance, outline, previous, "comment " + text));
        ok(OutlineJni.updateMemberFormula(instance, outline, previous, "formula " + text));
        ok(OutlineJni.setMemberUDA(instance, outline, previous, "attribute " + text));
      }
      open.write();
    }
    try (OpenOutline open = store.query()) {
      List<String> names = new ArrayList<>();
      ok(OutlineJni.getChildrenFor(open.handle(), "Texts", "Texts", names));
      assertEquals(Arrays.asList(TEXTS), names);
      List<MemberAlias> aliases = new ArrayList<>();
      ok(OutlineJni.getMemberAliasesForTable(open.instance(), open.handle(), table, names, aliases,
          false));
      for (int i = 0; i < TEXTS.length; i++) {
        assertEquals("alias " + TEXTS[i], aliases.get(i).getAliasName());
        compare(open, TEXTS[i]);
      }
    }
  }

  private static void compare(OpenOutline open, String text) {
    OutlineMemberProperties properties = new OutlineMemberProperties();
    ok(OutlineJni.getMemberInfo(open.handle(), text, properties));
    assertEquals(text, properties.getName());
    assertEquals("comment " + text, properties.getComment());
    Formula formula = new Formula();
    ok(OutlineJni.getMemberFormulaQuery(open.instance(), open.handle(), text, formula));
    assertEquals("formula " + text, formula.getFormula());
    List<String> attributes = new ArrayList<>();
    ok(OutlineJni.getMemberUDASQuery(open.instance(), open.handle(), text, attributes));
    assertEquals(Collections.singletonList("attribute " + text), attributes);

    List<MemberPath> paths = new ArrayList<>();
    ok(OutlineJni.findMemberQuery(open.handle(), text, null, true, false, paths));
    assertEquals(Arrays.asList(text, "Texts"), paths.get(0).getNames());
    FindRequest request = new FindRequest();
    request.setText(text);
    request.setSearchMemberNames(false);
    request.setSearchFormulas(true);
    assertEquals(Collections.singletonList(text), found(open, request));
  }

  @Test
  public void textsThatDoNotFitAreRefusedWholeAndTheRestStays() {
    String fits = String.join("", Collections.nCopies(13, "😀")) + "xx"; // 6 bytes each: 80
    assertEquals(DefaultMember.MAX_NAME_BYTES, DefaultMember.encodedLength(fits));
    try (OpenOutline open = store.edit()) {
      InstanceHandle instance = open.instance();
      OutlineHandle outline = open.handle();
      int dimension = create(open, 0, 0, "Texts");
      List<DefaultMember> created = new ArrayList<>();
      assertEquals(-1, OutlineJni.createMember(
          instance, outline, dimension, 0, fits + "x", created));
      assertTrue(created.isEmpty());
      int member = create(open, dimension, 0, fits);
      assertNotEquals(0, OutlineJni.renameMember(instance, outline, member, fits + "x"));
      assertNotEquals(0, OutlineJni.assignMemberAlias(
          instance, outline, member, "Default", fits + "x"));
      assertNotEquals(0, OutlineJni.setMemberUDA(instance, outline, member, fits + "x"));
      assertEquals(-1, OutlineJni.assignMemberCategory(instance, outline, member, fits + "x"));

      char[] comment = new char[DefaultMember.MAX_COMMENT_BYTES];
      Arrays.fill(comment, 'c');
      ok(OutlineJni.assignMemberComment(instance, outline, member, new String(comment)));
      assertEquals(-1, OutlineJni.assignMemberComment(
          instance, outline, member, new String(comment) + "c"));
      DefaultMember read = children(open, "Texts").get(0);
      assertEquals(fits, read.getName());
      assertEquals(new String(comment), read.getComment());
      assertNull(read.getCurrencyMember());
    }
  }
}
