package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.found;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import java.io.BufferedWriter;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;

/** Texts of a megabyte and files of many lines. */
public class LargeTest {
  private static final int MEGABYTE = 1 << 20;
  private static final int MEMBERS = 1000;

  @Rule public final StoreRule store = new StoreRule();

  private static String repeated(String text, int count) {
    return String.join("", Collections.nCopies(count, text));
  }

  private static List<String> searched(OpenOutline open, String text, boolean wholeWord) {
    FindRequest request = new FindRequest();
    request.setText(text);
    request.setSearchMemberNames(false);
    request.setSearchFormulas(true);
    request.setMatchWordsOnly(wholeWord);
    return found(open, request);
  }

  @Test
  public void formulasAndSearchTextsOfAMegabyteAreComparedWhole() {
    String formula = repeated("Sales+", MEGABYTE / 6) + "Costs;";
    try (OpenOutline open = store.edit()) {
      int dimension = create(open, 0, 0, "Measures");
      int margin = create(open, dimension, 0, "Margin");
      ok(OutlineJni.updateMemberFormula(open.instance(), open.handle(), margin, formula));
      open.write();
    }
    try (OpenOutline open = store.edit()) {
      Formula read = new Formula();
      ok(OutlineJni.getMemberFormula(open.instance(), open.handle(), "Margin", 0, read));
      assertEquals(formula, read.getFormula());
      List<String> margin = Collections.singletonList("Margin");
      assertEquals("a word at the end", margin, searched(open, "costs", true));
      assertEquals("the whole formula", margin, searched(open, formula, false));
      assertEquals("as a word", margin, searched(open, formula.substring(6), true));
      assertEquals("one letter off at the end", Collections.emptyList(),
          searched(open, formula.replace("Costs", "Coats"), false));
    }
  }

  @Test
  public void aliasFileOfManyLinesIsReadToItsEnd() throws IOException {
    int lines = Settings.scaled(200_000);
    Path file = Settings.newFolder().resolve("aliases");
    try (BufferedWriter writer = Files.newBufferedWriter(file, StandardCharsets.UTF_8)) {
      writer.write("$ALT_NAME  'Large'\n");
      for (int i = 0; i < lines; i++) {
        writer.write("\"Member " + i % MEMBERS + "\"   \"Alias " + i + "\"\n");
      }
      writer.write("$END\n");
    }
    try (OpenOutline open = store.edit()) {
      int dimension = create(open, 0, 0, "Dimension");
      int previous = 0;
      for (int i = 0; i < MEMBERS; i++) {
        previous = create(open, dimension, previous, "Member " + i);
      }
      StringBuffer table = new StringBuffer();
      ok(OutlineJni.importAliasTable(open.instance(), open.handle(), file.toString(), table, false,
          new StringBuffer()));
      List<MemberAlias> aliases = new ArrayList<>();
      int last = (lines - 1) % MEMBERS;
      ok(OutlineJni.getMemberAliasesForTable(open.instance(), open.handle(), table.toString(),
          Arrays.asList("Member " + last), aliases, false));
      assertEquals("Alias " + (lines - 1), aliases.get(0).getAliasName());
    }
  }
}
