package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.Before;
import org.junit.Rule;
import org.junit.Test;

/** Alias tables as files: written, read back, and read from files that people have edited. */
public class AliasFileTest {
  private static final List<String> MEMBERS = Arrays.asList("Jan", "Feb", "Mar", "Last name");

  @Rule public final StoreRule store = new StoreRule();

  private Path file;

  @Before
  public void createMembers() {
    file = Settings.newFolder().resolve("aliases");
    try (OpenOutline open = store.edit()) {
      int year = create(open, 0, 0, "Year");
      int previous = 0;
      for (String member : MEMBERS) {
        previous = create(open, year, previous, member);
      }
      open.write();
    }
  }

  private int importFile(OpenOutline open, String wanted, boolean allowExisting) {
    return OutlineJni.importAliasTable(open.instance(), open.handle(), file.toString(),
        new StringBuffer(wanted), allowExisting, new StringBuffer());
  }

  private static List<String> aliases(OpenOutline open, String table) {
    List<MemberAlias> aliases = new ArrayList<>();
    ok(OutlineJni.getMemberAliasesForTable(open.instance(), open.handle(), table, MEMBERS, aliases,
        false));
    return aliases.stream().map(MemberAlias::getAliasName).collect(Collectors.toList());
  }

  /** Imports a file and gives the aliases of the four members. */
  private List<String> imported(String content) throws IOException {
    Files.write(file, content.getBytes(StandardCharsets.UTF_8));
    try (OpenOutline open = store.edit()) {
      assertEquals(0, importFile(open, "Read", false));
      return aliases(open, "Read");
    }
  }

  @Test
  public void filesOfEditorsAreUnderstood() throws IOException {
    String header = "$ALT_NAME  'Any'\n";
    assertEquals("quoted, unquoted, with other members and a third field",
        Arrays.asList("January", "Februar y", "March", null),
        imported(header + "Jan January\n\"Feb\" \"Februar y\" \"more\"\nApr April\n"
            + "\t Mar\tMarch   more\n$END\n\"Last name\" \"after the end\"\n"));
    assertEquals("carriage returns", Arrays.asList("January", null, "March", "Last"),
        imported("$ALT_NAME  'Any'\r\n\"Jan\"   \"January\"\r\n\r\n\"Mar\" \"March\"\r\n"
            + "\"Last name\" \"Last\"\r\n$END\r\n"));
    assertEquals("no end line and no final line feed",
        Arrays.asList("January", null, null, "Last"),
        imported(header + "Jan January\n\"Last name\"   \"Last\""));
    assertEquals("a NUL ends the text of its line, not the file",
        Arrays.asList("Janu", "February", null, null),
        imported(header + "Jan Janu\0ary\nFeb February\n$END\n"));

    char[] much = new char[1 << 20];
    Arrays.fill(much, 'x');
    String megabyte = new String(much);
    assertEquals("a megabyte line is passed over", Arrays.asList(null, "February", "March", null),
        imported(header + "\"Jan\"   \"" + megabyte + "\"\nFeb February\n" + megabyte + "\n"
            + "Mar March\n$END\n"));
  }

  @Test
  public void exportedTableReadsBackAndIsWrittenTheSame() throws IOException {
    List<String> written =
        Arrays.asList("Januar, 1\u00e9r", "quarter's \ud83d\ude00", null, "a\rb\tc");
    try (OpenOutline open = store.edit()) {
      ok(OutlineJni.createAliasTable(open.instance(), open.handle(), "Out"));
      for (int i = 0; i < written.size(); i++) {
        ok(OutlineJni.assignMemberAlias(open.instance(), open.handle(), open.find(MEMBERS.get(i)),
            "Out", written.get(i)));
      }
      ok(OutlineJni.exportAliasTable(open.instance(), open.handle(), "Out", file.toString()));
      byte[] first = Files.readAllBytes(file);
      ok(OutlineJni.deleteAliasTable(open.instance(), open.handle(), "Out"));

      StringBuffer table = new StringBuffer();
      StringBuffer used = new StringBuffer();
      ok(OutlineJni.importAliasTable(open.instance(), open.handle(), file.toString(), table, false,
          used));
      assertEquals("the name stands in the file", "Out Out", table + " " + used);
      assertEquals(written, aliases(open, "Out"));
      ok(OutlineJni.exportAliasTable(open.instance(), open.handle(), "Out", file.toString()));
      assertArrayEquals(first, Files.readAllBytes(file));
    }
  }

  @Test
  public void existingTablesAreFilledOnlyWhenAllowed() throws IOException {
    Files.write(file, "$ALT_NAME  'Default'\nJan January\n$END\n".getBytes(
        StandardCharsets.UTF_8));
    try (OpenOutline open = store.edit()) {
      assertEquals(1060040, importFile(open, "", false));
      assertEquals(Arrays.asList(null, null, null, null), aliases(open, "Default"));
      assertEquals(0, importFile(open, "", true));
      assertEquals(Arrays.asList("January", null, null, null), aliases(open, "Default"));
    }
  }

  @Test
  public void pathsThatCannotBeUsedAreRefused() {
    try (OpenOutline open = store.edit()) {
      String[] targets = {
        file.getParent().toString(), file.resolve("below/nothing").toString(), "", "/dev/full"
      };
      for (String path : targets) {
        assertEquals(path, -1,
            OutlineJni.exportAliasTable(open.instance(), open.handle(), "", path));
      }
      for (String path : new String[] {file.getParent().toString(), file + ".missing", ""}) {
        assertEquals(path, -1, OutlineJni.importAliasTable(open.instance(), open.handle(), path,
            new StringBuffer("New"), false, new StringBuffer()));
      }
      assertEquals("no table was left behind", 0,
          OutlineJni.createAliasTable(open.instance(), open.handle(), "New"));
    }
  }
}
