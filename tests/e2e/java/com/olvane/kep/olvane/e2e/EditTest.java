package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.AttributeSpecification;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.CurrencyConversion;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
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

  private static List<String> names(List<DefaultMember> members) {
    return members.stream().map(DefaultMember::getName).collect(Collectors.toList());
  }

  @Test
  public void propertiesOfMembers() {
    edit(open -> {
      int dimension = StoreRule.create(open, 0, 0, "Measures");
      int member = StoreRule.create(open, dimension, 0, "Sales");
      StoreRule.create(open, dimension, member, "Costs");
      check("category", OutlineJni.assignMemberDimensionCategory(instance, outline, dimension,
          new DimensionCategory(DimensionCategory.ACCOUNTS), null));
      check("storage", OutlineJni.assignDimensionStorageType(instance, outline, dimension,
          new DimensionStorageType((short) 2)));
      check("hybrid", OutlineJni.assignDimensionHybridAnalysis(instance, outline, dimension, true));
      check("consolidation", OutlineJni.assignMemberConsolidation(instance, outline, member,
          new Consolidation((short) 3)));
      check("share", OutlineJni.assignMemberShare(instance, outline, member,
          new Share(Share.LABEL_ONLY)));
      check("balance", OutlineJni.assignMemberTimeBalance(instance, outline, member,
          new TimeBalance((short) 2)));
      check("skip", OutlineJni.assignMemberTimeBalanceSkip(instance, outline, member,
          new TimeBalanceSkip((short) 1)));
      check("conversion", OutlineJni.assignMemberConversion(instance, outline, member,
          new CurrencyConversion((short) 2)));
      check("two passes", OutlineJni.assignMemberTwoPass(instance, outline, member, true));
      check("variance", OutlineJni.assignMemberVariance(instance, outline, member, true));
      check("currency", OutlineJni.assignMemberCategory(instance, outline, member, "P&L"));
      check("comment", OutlineJni.assignMemberComment(instance, outline, member, "net"));
      check("formula", OutlineJni.updateMemberFormula(instance, outline, member, "@SUM(1);"));
      for (String attribute : new String[] {"one", "two", "three"}) {
        check("add", OutlineJni.setMemberUDA(instance, outline, member, attribute));
      }
      check("remove", OutlineJni.deleteMemberUDA(instance, outline, member, "two"));
      check("create a table", OutlineJni.createAliasTable(instance, outline, "Long"));
      check("alias", OutlineJni.assignMemberAlias(instance, outline, member, "Long", "Net sales"));
      check("alias", OutlineJni.assignMemberAlias(instance, outline, member, "Default", "Gone"));
      check("alias", OutlineJni.assignMemberAlias(instance, outline, member, "Default", ""));
    }, open -> {
      assertEquals(DimensionCategory.ACCOUNTS, properties("Measures").getCategory());
      assertEquals(2, properties("Measures").getStorage());
      assertTrue(StoreRule.children(open, null).get(0).isHybridAnalysisEnabled());
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
      check("read the formula",
          OutlineJni.getMemberFormula(instance, outline, "Sales", 0, formula));
      assertEquals("@SUM(1);", formula.getFormula());
      List<String> attributes = new ArrayList<>();
      check("read the attributes",
          OutlineJni.getMemberUDAS(instance, outline, "Sales", 0, attributes));
      assertEquals(Arrays.asList("one", "three"), attributes);
      List<MemberAlias> aliases = new ArrayList<>();
      check("read the aliases",
          OutlineJni.getMemberAliasesQuery(instance, outline, "Sales", aliases));
      assertEquals(Arrays.asList(null, "Net sales"),
          aliases.stream().map(MemberAlias::getAliasName).collect(Collectors.toList()));

      OutlineMemberProperties costs = properties("Costs");
      assertEquals("the neighbour is as it was", "0 0 0 0 0 false false ",
          costs.getConsolidation() + " " + costs.getShare() + " " + costs.getTimeBalance() + " "
              + costs.getSkip() + " " + costs.getConversion() + " " + costs.isTwoPass() + " "
              + costs.isExpense() + " " + costs.getCurrencyMember());
    });
  }

  @Test
  public void shapeOfTheOutline() {
    edit(open -> {
      int dimension = StoreRule.create(open, 0, 0, "Year");
      int b = StoreRule.create(open, dimension, 0, "B");
      int c = StoreRule.create(open, dimension, b, "C");
      int a = StoreRule.create(open, dimension, c, "A");
      int under = StoreRule.create(open, a, 0, "under A");
      check("rename", OutlineJni.renameMember(instance, outline, b, "D"));
      check("sort", OutlineJni.sortChildren(instance, outline, dimension, true));
      assertEquals(Arrays.asList("A", "C", "D"), names(StoreRule.children(open, "Year")));
      check("sort", OutlineJni.sortChildren(instance, outline, dimension, false));
      check("move", OutlineJni.moveMember(instance, outline, c, a, false));
      check("move", OutlineJni.moveMember(instance, outline, c, under, true));
      StoreRule.create(open, 0, dimension, "Gone");
      check("delete", OutlineJni.deleteMember(instance, outline, open.find("Gone")));
    }, open -> {
      assertEquals(Collections.singletonList("Year"), names(StoreRule.children(open, null)));
      assertEquals(Arrays.asList("D", "C", "under A"), names(StoreRule.children(open, "Year")));
      assertEquals(Collections.singletonList("A"), names(StoreRule.children(open, "C")));
      assertEquals(2, properties("Year").getLevel());
      assertEquals(3, properties("A").getGeneration());
      assertFalse(OutlineJni.findMember(outline, "B"));
    });
  }

  @Test
  public void attributeDimensions() {
    edit(open -> {
      int colour = StoreRule.create(open, 0, 0, "Colour");
      int product = StoreRule.create(open, 0, colour, "Product");
      int size = StoreRule.create(open, 0, product, "Size");
      for (int dimension : new int[] {colour, size}) {
        check("make an attribute dimension", OutlineJni.assignMemberDimensionCategory(instance,
            outline, dimension, new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
        check("associate", OutlineJni.assignAttributeDimension(
            instance, outline, product, dimension));
      }
      StoreRule.create(open, colour, 0, "Red");
      StoreRule.create(open, size, 0, "Large");
      int car = StoreRule.create(open, product, 0, "Car");
      int bus = StoreRule.create(open, product, car, "Bus");
      for (int member : new int[] {car, bus}) {
        check("associate", OutlineJni.assignAttributeMember(instance, outline, member, "Red"));
        check("associate", OutlineJni.assignAttributeMember(instance, outline, member, "Large"));
      }
      check("remove", OutlineJni.unassignAttributeMember(instance, outline, bus, "Red"));
      check("remove", OutlineJni.unassignAttributeDimension(instance, outline, product, "Size"));
    }, open -> {
      assertEquals("attribute dimensions come last", "Product",
          names(StoreRule.children(open, null)).get(0));
      assertEquals(Collections.singletonList("Colour Red"), attributes(open, "Car"));
      assertEquals(Collections.emptyList(), attributes(open, "Bus"));
      assertTrue(properties("Car").hasAttributes());
      assertFalse(properties("Bus").hasAttributes());
      assertEquals(DimensionCategory.ATTRIBUTE, properties("Red").getCategory());
    });
  }

  private List<String> attributes(OpenOutline open, String member) {
    List<MemberAttribute> attributes = new ArrayList<>();
    check("read the attributes", OutlineJni.getMemberAttributes(
        instance, outline, open.find(member), attributes));
    return attributes.stream()
        .map(attribute -> attribute.getDimension() + " " + attribute.getMemberName())
        .collect(Collectors.toList());
  }

  @Test
  public void settingsOfTheOutline() {
    edit(open -> {
      check("update", OutlineJni.updateAutoConfigure(instance, outline, true));
      check("update", OutlineJni.updateCaseSensitivity(instance, outline, true));
      check("update", OutlineJni.updateLongnameConstructor(
          instance, outline, new LongNameConstructor((short) 1)));
      check("update", OutlineJni.updateLongnameSource(
          instance, outline, new LongNameSource((short) 2)));
      check("update", OutlineJni.updateLongnameDelimiter(
          instance, outline, new LongNameDelimiter((short) 3)));
      check("update", OutlineJni.updateDateFormat(
          instance, outline, new AttributeDateFormat((short) 1)));
      check("update", OutlineJni.updateBucketingType(
          instance, outline, new BucketingType((short) 1)));
      check("update", OutlineJni.updateBooleanNameTrue(instance, outline, "Oui"));
      check("update", OutlineJni.updateBooleanNameFalse(instance, outline, "Non"));
      check("update", OutlineJni.updateCalcDimName(instance, outline, "Calculs"));
      check("update", OutlineJni.updateSumMemberName(instance, outline, "Somme"));
      check("update", OutlineJni.updateCountMemberName(instance, outline, "Nombre"));
      check("update", OutlineJni.updateAverageMemberName(instance, outline, "Moyenne"));
      check("update", OutlineJni.updateMinimumMemberName(instance, outline, "Minimum"));
      check("update", OutlineJni.updateMaximumMemberName(instance, outline, "Maximum"));
      StoreRule.create(open, 0, 0, "Case");
      StoreRule.create(open, open.find("Case"), 0, "CASE");
    }, open -> {
      OutlineInformation information = new OutlineInformation();
      check("read", OutlineJni.getOutlineInfo(outline, information));
      assertTrue(information.isAutoConfigure());
      assertTrue(information.isCaseSensitive());
      assertTrue(OutlineJni.findMember(outline, "CASE"));
      assertFalse(OutlineJni.findMember(outline, "case"));
      AttributeSettings settings = new AttributeSettings();
      check("read", OutlineJni.getAttributeSpecsEx(instance, outline, settings));
      assertEquals("1 2 3 1 1", settings.getLongNameConstructor().getValue() + " "
          + settings.getLongNameSource().getValue() + " "
          + settings.getLongNameDelimiter().getValue() + " "
          + settings.getDateFormat().getValue() + " " + settings.getBucketingType().getValue());
      assertEquals(Arrays.asList("Oui", "Non", "Calculs", "Somme", "Nombre", "Moyenne", "Minimum",
          "Maximum"), Arrays.asList(settings.getTrueText(), settings.getFalseText(),
          settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
          settings.getAverage(), settings.getMinimum(), settings.getMaximum()));
      // The older reader tells the same in plain values.
      AttributeSpecification plain = new AttributeSpecification();
      check("read", OutlineJni.getAttributeSpecs(outline, plain));
      assertTrue(plain.toString(), plain.toString().contains("Moyenne"));
    });
  }

  @Test
  public void aliasTablesGenerationsAndTimeSeries() {
    edit(open -> {
      int year = StoreRule.create(open, 0, 0, "Year");
      int quarter = StoreRule.create(open, year, 0, "Quarter");
      StoreRule.create(open, quarter, 0, "Month");
      check("category", OutlineJni.assignMemberDimensionCategory(instance, outline, year,
          new DimensionCategory(DimensionCategory.TIME), null));
      check("create", OutlineJni.createAliasTable(instance, outline, "First"));
      check("alias", OutlineJni.assignMemberAlias(instance, outline, quarter, "First", "Three"));
      check("copy", OutlineJni.copyAliasTable(instance, outline, "First", "Second", false));
      check("rename", OutlineJni.renameAliasTable(instance, outline, "Second", "Renamed"));
      check("clear", OutlineJni.clearAliasTable(instance, outline, "First"));
      check("create", OutlineJni.createAliasTable(instance, outline, "Gone"));
      check("delete", OutlineJni.deleteAliasTable(instance, outline, "Gone"));
      check("name", OutlineJni.createGeneration(instance, outline, "Year", "Quarters", (short) 2));
      check("name", OutlineJni.createGeneration(instance, outline, "Year", "Gone", (short) 3));
      check("remove", OutlineJni.deleteGeneration(instance, outline, "Year", (short) 3));
      check("name", OutlineJni.createLevel(instance, outline, "Year", "Leaves", (short) 0));
      check("name", OutlineJni.createLevel(instance, outline, "Year", "Gone", (short) 1));
      check("remove", OutlineJni.deleteLevel(instance, outline, "Year", (short) 1));
      check("enable",
          OutlineJni.enableDTSMember(instance, outline, "Y-T-D", (short) 1, true));
      check("enable",
          OutlineJni.enableDTSMember(instance, outline, "Q-T-D", (short) 1, true));
      check("alias",
          OutlineJni.setDTSMemberAlias(instance, outline, "Q-T-D", "so far", "Renamed"));
      check("move",
          OutlineJni.enableDTSMember(instance, outline, "Q-T-D", (short) 2, true));
      check("disable",
          OutlineJni.enableDTSMember(instance, outline, "Y-T-D", (short) 1, false));
    }, open -> {
      List<String> texts = new ArrayList<>();
      check("list", OutlineJni.getDimensionsAlias(instance, outline, "Renamed", texts));
      check("list",
          OutlineJni.getChildrenAliasFor(instance, outline, "Year", "Year", "Renamed", texts));
      check("list",
          OutlineJni.getChildrenAliasFor(instance, outline, "Year", "Year", "First", texts));
      assertEquals(Arrays.asList("\"Year\"\"\"\"Time\"", "\"Quarter\"\"Three\"",
          "\"Quarter\"\"\""), texts);
      OutlineInformation information = new OutlineInformation();
      check("read", OutlineJni.getOutlineInfo(outline, information));
      assertEquals(Arrays.asList("Default", "First", "Renamed"), information.getAliasTables());
      List<String> named = new ArrayList<>();
      check("list", OutlineJni.getGenerations(instance, outline, "Year", named));
      check("list", OutlineJni.getLevels(instance, outline, "Year", named));
      assertEquals(Arrays.asList("Quarters", "Leaves"), named);
      List<DynamicTimeSeries> series = new ArrayList<>();
      check("list", OutlineJni.getDTSMembersEx(instance, outline, series));
      assertEquals(1, series.size());
      assertEquals("Q-T-D", series.get(0).getName());
      assertEquals(2, series.get(0).getGeneration());
      assertEquals("so far", series.get(0).getAliases().get("Renamed"));
    });
  }
}
