package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Place;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.stream.Collectors;
import org.junit.Rule;
import org.junit.Test;

/** Edits of dimensions, settings and alias tables, done, undone and done again. */
public class PartEditsTest {
  @Rule public final SampleOutline sample = new SampleOutline();

  private void check(Edit edit) {
    sample.check(edit);
  }

  @Test
  public void namesOfGenerationsAndLevelsComeBack() {
    Member year = sample.find("Year");
    check(DimensionEdits.name(year, true, 2, "Half-years"));
    check(DimensionEdits.name(year, true, 3, "Months"));
    check(DimensionEdits.name(year, true, 2, ""));
    check(DimensionEdits.name(sample.find("Product"), false, 0, ""));
    check(DimensionEdits.name(sample.find("Product"), false, 1, "Groups"));
  }

  @Test
  public void kindsOfDimensionsComeBackWithWhatTheyTook() {
    check(DimensionEdits.hybridAnalysis(sample.find("Product"), true));
    // Takes the attribute dimensions off, and with them the members' associations.
    check(DimensionEdits.storageType(sample.find("Product"), (short) 2));
    check(DimensionEdits.associate(sample.find("Product"), sample.find("Size"), true));
    check(DimensionEdits.associate(sample.find("Product"), sample.find("Size"), false));
    // Moves it behind the other dimensions.
    sample.outline.create(Place.firstDimension(),
        new NewMember("First", new Changes().twoPass(true).expense(true)));
    check(DimensionEdits.categorise(sample.find("First"), DimensionCategory.ATTRIBUTE));
    check(DimensionEdits.categorise(sample.find("Year"), DimensionCategory.NONE));
    check(DimensionEdits.categorise(sample.find("Product"), DimensionCategory.ACCOUNTS));
  }

  @Test
  public void timeSeriesComeBackInTheirOrder() {
    sample.outline.timeSeries().enable("M-T-D", 2);
    check(DimensionEdits.series("Y-T-D", 0));
    sample.outline.timeSeries().enable("Y-T-D", 1);
    check(DimensionEdits.series("M-T-D", 3));
    check(DimensionEdits.series("Q-T-D", 2));
    check(DimensionEdits.seriesAlias("Y-T-D", "Default", "Since January"));
    check(DimensionEdits.seriesAlias("Y-T-D", "French", ""));
  }

  @Test
  public void settingsComeBack() {
    for (SettingsRows.Setting one : SettingsRows.ofOutline()) {
      check(one.edit(one.read.apply(sample.outline).equals("yes") ? "no" : "yes"));
    }
    for (SettingsRows.Setting one : SettingsRows.ofAttributes()) {
      check(one.edit(one.label.contains("number") ? "3" : "The " + one.label));
    }
  }

  @Test
  public void aliasTablesComeBackWithTheirAliasesAtTheirPlaces() {
    sample.outline.aliasTables().create("German");
    sample.outline.change(sample.find("Tea"), new Changes().alias("German", "Tee"));
    check(AliasTableEdits.rename("French", "Fran\u00e7ais"));
    check(AliasTableEdits.rename("Fran\u00e7ais", "French"));
    check(AliasTableEdits.copy("French", "Copy"));
    check(AliasTableEdits.copy("German", "French"));
    check(AliasTableEdits.clear("French"));
    sample.outline.timeSeries().alias("Y-T-D", "German", "Seit Januar");
    check(AliasTableEdits.clear("German"));
    sample.outline.change(sample.find("Tea"), new Changes().alias("French", "Th\u00e9"));
    check(AliasTableEdits.create("Empty"));
    check(AliasTableEdits.makeDefault("French"));
    assertEquals("[French, German, Copy, Empty, Former default]",
        sample.outline.aliasTables().names().toString());
    assertEquals("Th\u00e9", sample.outline.find("Tea", Details.NONE.aliases("French")).get().alias("French"));
    check(AliasTableEdits.delete("German"));
    check(AliasTableEdits.makeDefault("Copy"));
  }

  /** The handles of what was deleted and came back in between are others. */
  @Test
  public void aliasesComeBackToMembersThatCameBack() {
    String before = sample.everything();
    Edit clear = AliasTableEdits.clear("French");
    Edit delete = MemberEdits.delete(sample.some("Drinks"));
    clear.apply(sample.context);
    delete.apply(sample.context);
    delete.revert(sample.context);
    clear.revert(sample.context);
    assertEquals(before, sample.everything());
  }

  @Test
  public void anImportAppliesWhatItsPreviewSays() throws IOException {
    Path path = Settings.newFolder().resolve("french.alt");
    String longest = new String(new char[81]).replace('\0', 'x');
    Files.write(path, Arrays.asList("$ALT_NAME  'French'", "\"Cola\"   \"Coca\"",
        "\"Tea\"   \"Th\u00e9 vert\"", "Food Nourriture", "\"Nowhere\"   \"Nulle part\"",
        "\"Bread\"   \"" + longest + "\"", "lonely", "", "$END", "\"Bread\"  \"Pain\""),
        StandardCharsets.UTF_8);
    AliasFile file = AliasFile.read(path);
    assertEquals("French", file.table);
    file.judge(sample.outline, "French");
    assertEquals("2 SAME, 3 SET, 4 SET, 5 UNKNOWN, 6 TOO_LONG, 7 UNREADABLE",
        file.lines.stream().map(line -> line.number + " " + line.outcome)
            .collect(Collectors.joining(", ")));
    check(file.edit("French"));
    check(file.edit("New table"));
    Path exported = path.resolveSibling("exported.alt");
    sample.outline.aliasTables().exportTo("French", exported);
    AliasFile back = AliasFile.read(exported);
    back.judge(sample.outline, "French");
    assertEquals("all of the exported file applies", back.lines.size(),
        back.lines.stream().filter(line -> line.outcome == AliasFile.Outcome.SAME).count());
  }
}
