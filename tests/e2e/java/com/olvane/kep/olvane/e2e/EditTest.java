package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.children;
import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.CurrencyConversion;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.DimensionStorageType;
import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberAttribute;
import com.olvane.kep.olvane.defs.outline.OutlineInformation;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.defs.outline.TimeBalance;
import com.olvane.kep.olvane.defs.outline.TimeBalanceSkip;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import org.junit.Rule;
import org.junit.Test;

/** What is assigned is what is found: at once, and again after writing and reopening. */
public class EditTest {
  @Rule public final StoreRule store = new StoreRule();

  private InstanceHandle instance;
  private OutlineHandle outline;

  /** Edits an outline, and looks at it before writing, in a new edit and in browsing mode. */
  private void edit(Consumer<OpenOutline> edits, Consumer<OpenOutline> expectations) {
    try (OpenOutline open = store.edit()) {
      use(open);
      edits.accept(open);
      expectations.accept(open);
      open.write();
    }
    try (OpenOutline open = store.edit()) {
      use(open);
      expectations.accept(open);
    }
    try (OpenOutline open = store.query()) {
      use(open);
      expectations.accept(open);
    }
  }

  private void use(OpenOutline open) {
    instance = open.instance();
    outline = open.handle();
  }

  private OutlineMemberProperties properties(String member) {
    OutlineMemberProperties properties = new OutlineMemberProperties();
    check("read " + member, OutlineJni.getMemberInfo(outline, member, properties));
    assertEquals(member, properties.getName());
    return properties;
  }

  @Test
  public void propertiesOfMembers() {
    edit(open -> {
      int dimension = create(open, 0, 0, "Measures");
      int member = create(open, dimension, 0, "Sales");
      ok(OutlineJni.assignMemberDimensionCategory(instance, outline, dimension,
          new DimensionCategory(DimensionCategory.ACCOUNTS), null));
      ok(OutlineJni.assignDimensionStorageType(instance, outline, dimension,
          new DimensionStorageType((short) 2)));
      ok(OutlineJni.assignDimensionHybridAnalysis(instance, outline, dimension, true));
      ok(OutlineJni.assignMemberConsolidation(instance, outline, member,
          new Consolidation((short) 3)));
      ok(OutlineJni.assignMemberShare(instance, outline, member, new Share(Share.LABEL_ONLY)));
      ok(OutlineJni.assignMemberTimeBalance(instance, outline, member, new TimeBalance((short) 2)));
      ok(OutlineJni.assignMemberTimeBalanceSkip(instance, outline, member,
          new TimeBalanceSkip((short) 1)));
      ok(OutlineJni.assignMemberConversion(instance, outline, member,
          new CurrencyConversion((short) 2)));
      ok(OutlineJni.assignMemberTwoPass(instance, outline, member, true));
      ok(OutlineJni.assignMemberVariance(instance, outline, member, true));
      ok(OutlineJni.assignMemberCategory(instance, outline, member, "P&L"));
      ok(OutlineJni.assignMemberComment(instance, outline, member, "net"));
      ok(OutlineJni.updateMemberFormula(instance, outline, member, "@SUM(1);"));
      for (String attribute : new String[] {"one", "two", "three"}) {
        ok(OutlineJni.setMemberUDA(instance, outline, member, attribute));
      }
      ok(OutlineJni.deleteMemberUDA(instance, outline, member, "two"));
      ok(OutlineJni.createAliasTable(instance, outline, "Long"));
      ok(OutlineJni.assignMemberAlias(instance, outline, member, "Long", "Net sales"));
      ok(OutlineJni.assignMemberAlias(instance, outline, member, "Default", "Gone"));
      ok(OutlineJni.assignMemberAlias(instance, outline, member, "Default", ""));
    }, open -> {
      assertEquals(DimensionCategory.ACCOUNTS, properties("Measures").getCategory());
      assertEquals(2, properties("Measures").getStorage());
      assertTrue(children(open, null).get(0).isHybridAnalysisEnabled());
      OutlineMemberProperties sales = properties("Sales");
      assertEquals(3, sales.getConsolidation());
      assertEquals(Share.LABEL_ONLY, sales.getShare());
      assertEquals(2, sales.getTimeBalance());
      assertEquals(1, sales.getSkip());
      assertEquals(2, sales.getConversion());
      assertTrue(sales.isTwoPass());
      assertTrue(sales.isExpense());
      assertEquals("P&L", sales.getCurrencyMember());
      assertEquals("net", sales.getComment());
      Formula formula = new Formula();
      ok(OutlineJni.getMemberFormula(instance, outline, "Sales", 0, formula));
      assertEquals("@SUM(1);", formula.getFormula());
      List<String> attributes = new ArrayList<>();
      ok(OutlineJni.getMemberUDAS(instance, outline, "Sales", 0, attributes));
      assertEquals(Arrays.asList("one", "three"), attributes);
      List<MemberAlias> aliases = new ArrayList<>();
      ok(OutlineJni.getMemberAliasesQuery(instance, outline, "Sales", aliases));
      assertEquals(Arrays.asList(null, "Net sales"),
          aliases.stream().map(MemberAlias::getAliasName).collect(Collectors.toList()));
    });
  }

  @Test
  public void attributeDimensions() {
    edit(open -> {
      int colour = create(open, 0, 0, "Colour");
      int product = create(open, 0, colour, "Product");
      int size = create(open, 0, product, "Size");
      for (int dimension : new int[] {colour, size}) {
        ok(OutlineJni.assignMemberDimensionCategory(instance, outline, dimension,
            new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
        ok(OutlineJni.assignAttributeDimension(instance, outline, product, dimension));
      }
      create(open, colour, 0, "Red");
      create(open, size, 0, "Large");
      int car = create(open, product, 0, "Car");
      int bus = create(open, product, car, "Bus");
      for (int member : new int[] {car, bus}) {
        ok(OutlineJni.assignAttributeMember(instance, outline, member, "Red"));
        ok(OutlineJni.assignAttributeMember(instance, outline, member, "Large"));
      }
      ok(OutlineJni.unassignAttributeMember(instance, outline, bus, "Red"));
      ok(OutlineJni.unassignAttributeDimension(instance, outline, product, "Size"));
    }, open -> {
      assertEquals("attribute dimensions come last", "Product",
          children(open, null).get(0).getName());
      assertEquals(Collections.singletonList("Colour Red"), attributes(open, "Car"));
      assertEquals(Collections.emptyList(), attributes(open, "Bus"));
      assertTrue(properties("Car").hasAttributes());
      assertFalse(properties("Bus").hasAttributes());
      assertEquals(DimensionCategory.ATTRIBUTE, properties("Red").getCategory());
    });
  }

  private List<String> attributes(OpenOutline open, String member) {
    List<MemberAttribute> attributes = new ArrayList<>();
    ok(OutlineJni.getMemberAttributes(instance, outline, open.find(member), attributes));
    return attributes.stream()
        .map(attribute -> attribute.getDimension() + " " + attribute.getMemberName())
        .collect(Collectors.toList());
  }

  @Test
  public void settingsOfTheOutline() {
    edit(open -> {
      ok(OutlineJni.updateAutoConfigure(instance, outline, true));
      ok(OutlineJni.updateCaseSensitivity(instance, outline, true));
      ok(OutlineJni.updateLongnameConstructor(instance, outline,
          new LongNameConstructor((short) 1)));
      ok(OutlineJni.updateLongnameSource(instance, outline, new LongNameSource((short) 2)));
      ok(OutlineJni.updateLongnameDelimiter(instance, outline, new LongNameDelimiter((short) 3)));
      ok(OutlineJni.updateDateFormat(instance, outline, new AttributeDateFormat((short) 1)));
      ok(OutlineJni.updateBucketingType(instance, outline, new BucketingType((short) 1)));
      ok(OutlineJni.updateBooleanNameTrue(instance, outline, "Oui"));
      ok(OutlineJni.updateBooleanNameFalse(instance, outline, "Non"));
      ok(OutlineJni.updateCalcDimName(instance, outline, "Calculs"));
      ok(OutlineJni.updateSumMemberName(instance, outline, "Somme"));
      ok(OutlineJni.updateCountMemberName(instance, outline, "Nombre"));
      ok(OutlineJni.updateAverageMemberName(instance, outline, "Moyenne"));
      ok(OutlineJni.updateMinimumMemberName(instance, outline, "Minimum"));
      ok(OutlineJni.updateMaximumMemberName(instance, outline, "Maximum"));
      create(open, 0, 0, "Case");
      create(open, open.find("Case"), 0, "CASE");
    }, open -> {
      OutlineInformation information = new OutlineInformation();
      ok(OutlineJni.getOutlineInfo(outline, information));
      assertTrue(information.isAutoConfigure());
      assertTrue(information.isCaseSensitive());
      assertTrue(OutlineJni.findMember(outline, "CASE"));
      assertFalse(OutlineJni.findMember(outline, "case"));
      AttributeSettings settings = new AttributeSettings();
      ok(OutlineJni.getAttributeSpecsEx(instance, outline, settings));
      assertEquals("1 2 3 1 1", settings.getLongNameConstructor().getValue() + " "
          + settings.getLongNameSource().getValue() + " "
          + settings.getLongNameDelimiter().getValue() + " "
          + settings.getDateFormat().getValue() + " " + settings.getBucketingType().getValue());
      assertEquals(Arrays.asList("Oui", "Non", "Calculs", "Somme", "Nombre", "Moyenne", "Minimum",
          "Maximum"), Arrays.asList(settings.getTrueText(), settings.getFalseText(),
          settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
          settings.getAverage(), settings.getMinimum(), settings.getMaximum()));
    });
  }

  @Test
  public void aliasTablesGenerationsAndTimeSeries() {
    edit(open -> {
      int year = create(open, 0, 0, "Year");
      int quarter = create(open, year, 0, "Quarter");
      create(open, quarter, 0, "Month");
      ok(OutlineJni.assignMemberDimensionCategory(instance, outline, year,
          new DimensionCategory(DimensionCategory.TIME), null));
      ok(OutlineJni.createAliasTable(instance, outline, "First"));
      ok(OutlineJni.assignMemberAlias(instance, outline, quarter, "First", "Three"));
      ok(OutlineJni.copyAliasTable(instance, outline, "First", "Second", false));
      ok(OutlineJni.renameAliasTable(instance, outline, "Second", "Renamed"));
      ok(OutlineJni.clearAliasTable(instance, outline, "First"));
      ok(OutlineJni.createAliasTable(instance, outline, "Gone"));
      ok(OutlineJni.deleteAliasTable(instance, outline, "Gone"));
      ok(OutlineJni.createGeneration(instance, outline, "Year", "Quarters", (short) 2));
      ok(OutlineJni.createGeneration(instance, outline, "Year", "Gone", (short) 3));
      ok(OutlineJni.deleteGeneration(instance, outline, "Year", (short) 3));
      ok(OutlineJni.createLevel(instance, outline, "Year", "Leaves", (short) 0));
      ok(OutlineJni.createLevel(instance, outline, "Year", "Gone", (short) 1));
      ok(OutlineJni.deleteLevel(instance, outline, "Year", (short) 1));
      ok(OutlineJni.enableDTSMember(instance, outline, "Y-T-D", (short) 1, true));
      ok(OutlineJni.enableDTSMember(instance, outline, "Q-T-D", (short) 1, true));
      ok(OutlineJni.setDTSMemberAlias(instance, outline, "Q-T-D", "so far", "Renamed"));
      ok(OutlineJni.enableDTSMember(instance, outline, "Q-T-D", (short) 2, true));
      ok(OutlineJni.enableDTSMember(instance, outline, "Y-T-D", (short) 1, false));
    }, open -> {
      List<String> texts = new ArrayList<>();
      ok(OutlineJni.getDimensionsAlias(instance, outline, "Renamed", texts));
      ok(OutlineJni.getChildrenAliasFor(instance, outline, "Year", "Year", "Renamed", texts));
      ok(OutlineJni.getChildrenAliasFor(instance, outline, "Year", "Year", "First", texts));
      assertEquals(Arrays.asList("\"Year\"\"\"\"Time\"", "\"Quarter\"\"Three\"",
          "\"Quarter\"\"\""), texts);
      OutlineInformation information = new OutlineInformation();
      ok(OutlineJni.getOutlineInfo(outline, information));
      assertEquals(Arrays.asList("Default", "First", "Renamed"), information.getAliasTables());
      List<String> named = new ArrayList<>();
      ok(OutlineJni.getGenerations(instance, outline, "Year", named));
      ok(OutlineJni.getLevels(instance, outline, "Year", named));
      assertEquals(Arrays.asList("Quarters", "Leaves"), named);
      List<DynamicTimeSeries> series = new ArrayList<>();
      ok(OutlineJni.getDTSMembersEx(instance, outline, series));
      assertEquals(1, series.size());
      assertEquals("Q-T-D", series.get(0).getName());
      assertEquals(2, series.get(0).getGeneration());
      assertEquals("so far", series.get(0).getAliases().get("Renamed"));
    });
  }
}
