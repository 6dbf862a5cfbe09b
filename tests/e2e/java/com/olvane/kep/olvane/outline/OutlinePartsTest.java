package com.olvane.kep.olvane.outline;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;
import static org.junit.Assert.fail;

import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;
import com.olvane.kep.olvane.e2e.Settings;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;

/** The parts of an outline: what is set in one is read back, and refusals are exceptions. */
public class OutlinePartsTest {
  @Rule public final OutlineRule rule = new OutlineRule();

  private static void refused(int status, Runnable call) {
    try {
      call.run();
    } catch (OutlineException e) {
      assertEquals(e.getMessage(), status, e.status());
      return;
    }
    fail();
  }

  @Test
  public void aliasTablesGoOutToFilesAndComeBack() {
    Outline outline = rule.outline;
    AliasTables tables = outline.aliasTables();
    tables.create("Long");
    refused(Status.ALIAS_TABLE_EXISTS, () -> tables.create("Long"));
    Details details = Details.NONE.aliases("Long", "Longer");
    outline.change(rule.dimension, new Changes().alias("Long", "All products"));
    tables.copy("Long", "Longer", false);
    tables.clear("Long");
    assertEquals("", outline.read(rule.dimension, details).alias("Long"));
    assertEquals("All products", outline.read(rule.dimension, details).alias("Longer"));
    Path folder = Settings.newFolder();
    Path file = folder.resolve("aliases.txt");
    tables.exportTo("Longer", file);
    tables.delete("Longer");
    assertEquals("Longer", tables.importFrom(file, "", false));
    refused(Status.ALIAS_TABLE_EXISTS, () -> tables.importFrom(file, "", false));
    tables.rename("Longer", "Longest");
    assertEquals(Arrays.asList("Default", "Long", "Longest"), tables.names());
    assertEquals("All products",
        outline.read(rule.dimension, Details.NONE.aliases("Longest")).alias("Longest"));
    refused(Status.REFUSED, () -> tables.importFrom(folder.resolve("none"), "", false));
  }

  @Test
  public void generationsLevelsAndTimeSeries() {
    Outline outline = rule.outline;
    Member year = outline.create(Place.lastDimension(), new NewMember("Year")
        .add(new NewMember("Q1").add(new NewMember("Jan")).add(new NewMember("Feb"))));
    outline.categorise(year, DimensionCategory.TIME);
    outline.generations().name(year, 2, "Quarters");
    outline.levels().name(year, 0, "Months");
    assertEquals("{1=Gen1,Year, 2=Quarters, 3=Gen3,Year}",
        outline.generations().all(year).toString());
    assertEquals("{0=Months, 1=Lev1,Year, 2=Lev2,Year}", outline.levels().all(year).toString());
    assertEquals(Collections.singletonList("Quarters"), outline.generations().given(year));
    outline.generations().remove(year, 2);
    outline.levels().remove(year, 0);
    assertTrue(outline.generations().given(year).isEmpty());
    assertTrue(outline.levels().given(year).isEmpty());
    TimeSeries series = outline.timeSeries();
    series.enable("Y-T-D", 1);
    series.alias("Y-T-D", "Default", "To date");
    assertEquals("To date", series.enabled().get(0).getAliases().get("Default"));
    series.alias("Y-T-D", "Default", "");
    series.enable("Y-T-D", 2);
    assertEquals(2, series.enabled().get(0).getGeneration());
    assertEquals(Arrays.asList("Jan", "Feb"), series.latestPeriods(year));
    series.disable("Y-T-D", 2);
    assertTrue(series.enabled().isEmpty());
  }

  @Test
  public void settingsAndAttributes() {
    Outline outline = rule.outline;
    outline.settings().setCaseSensitive(true);
    outline.settings().setAutoConfigure(true);
    assertTrue(outline.settings().read().isCaseSensitive());
    assertTrue(outline.settings().read().isAutoConfigure());
    Attributes attributes = outline.attributes();
    for (Attributes.Name name : Attributes.Name.values()) {
      attributes.set(name, "The " + name);
    }
    attributes.setLongNames(new LongNameConstructor((short) 1), new LongNameSource((short) 2),
        new LongNameDelimiter((short) 3));
    attributes.setDateFormat(new AttributeDateFormat((short) 1));
    attributes.setRanges(new BucketingType((short) 1));
    AttributeSettings settings = attributes.settings();
    assertEquals("The TRUE The FALSE The CALCULATIONS The SUM The COUNT The AVERAGE The MINIMUM"
        + " The MAXIMUM", String.join(" ", settings.getTrueText(), settings.getFalseText(),
        settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
        settings.getAverage(), settings.getMinimum(), settings.getMaximum()));
    assertEquals(2, settings.getLongNameSource().getValue());
    assertEquals(3, settings.getLongNameDelimiter().getValue());

    outline.create(Place.lastDimension(), new NewMember("Size").add(new NewMember("Small")));
    outline.categorise(outline.find("Size").get(), DimensionCategory.ATTRIBUTE);
    Member size = outline.find("Size").get();
    assertEquals(DimensionCategory.ATTRIBUTE, size.category());
    attributes.associate(rule.dimension, size);
    Member shoe = outline.create(Place.firstBelow(rule.dimension),
        new NewMember("Shoe", new Changes().attribute("Small")));
    Details details = Details.NONE.attributes();
    assertEquals("[Size: Small]", outline.read(shoe, details).attributes().toString());
    outline.change(shoe, new Changes().withoutAttribute("Small"));
    assertTrue(outline.read(shoe, details).attributes().isEmpty());
    attributes.dissociate(rule.dimension, size);
    assertFalse(outline.read(rule.dimension, details).isAttributed());
    outline.setHybridAnalysis(rule.dimension, true);
    outline.setStorageType(rule.dimension, (short) 2);
    Member product = outline.read(rule.dimension, Details.NONE);
    assertTrue(product.isHybridAnalysisEnabled());
    assertEquals(2, product.storageTypeCode());
  }

  @Test
  public void databasesAreSavedToRestructuredAndCounted() {
    Outline outline = rule.outline;
    outline.build(Place.firstBelow(rule.dimension), OutlineRule.numbered("m", 3));
    Member shared = outline.create(Place.lastBelow(rule.dimension),
        new NewMember("lonely", new Changes().share(Share.SHARED).uda("a")));
    List<Finding> findings = outline.verify();
    assertEquals(shared.handle(), findings.get(0).handle());
    assertTrue(findings.get(0).toString(), findings.get(0).toString().contains("lonely"));
    assertEquals(Arrays.asList("m0", "m1", "m2"), outline.match("m?", null, null));
    assertEquals(Collections.singletonList("a"), outline.udas(rule.dimension));
    outline.delete(shared);
    assertTrue(outline.verify().isEmpty());
    outline.save();
    rule.store.create("Other", "Copy");
    outline.database().saveAs("Other", "Copy");
    assertTrue(rule.store.session().isRestructured("Other", "Copy"));
    try (Outline copy = rule.store.browse("Other", "Copy")) {
      assertEquals(3, copy.dimensions(Details.NONE).get(0).childCount());
    }
    assertFalse(rule.store.session().isRestructured("Test", "Test"));
    outline.database().restructure(1);
    assertTrue(rule.store.session().isRestructured("Test", "Test"));
    assertEquals(3, outline.database().cellCount("Product"));
    assertTrue(outline.database().isLocked());
    assertFalse(outline.database().holdsData());
    rule.store.session().setDataLoaded("Test", "Test", true);
    assertTrue(outline.database().holdsData());
  }
}
