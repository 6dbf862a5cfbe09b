package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNotEquals;

import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Share;
import com.olvane.kep.olvane.outline.Store;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.rules.ExternalResource;

/**
 * A small outline, open for editing, in which everything occurs that members and dimensions can
 * have.
 */
final class SampleOutline extends ExternalResource {
  Store store;
  Outline outline;
  EditContext context;

  @Override
  protected void before() {
    store = Store.open(Settings.newFolder().toString(), "tester");
    store.create("Test", "Test");
    outline = store.edit("Test", "Test");
    context = new EditContext(outline);
    outline.aliasTables().create("French");
    Member product = outline.create(Place.lastDimension(), new NewMember("Product",
        new Changes().comment("what is sold")));
    Member size = outline.create(Place.lastDimension(), new NewMember("Size")
        .add(new NewMember("Small")).add(new NewMember("Large")));
    outline.makeAttributeDimension(size, (short) 4);
    Member year = outline.create(Place.firstDimension(), new NewMember("Year")
        .add(new NewMember("H1").add(new NewMember("Jan"))).add(new NewMember("H2")));
    outline.categorise(year, DimensionCategory.TIME);
    outline.timeSeries().enable("Y-T-D", 1);
    outline.timeSeries().alias("Y-T-D", "French", "Cumul");
    outline.generations().name(year, 2, "Halves");
    outline.levels().name(product, 0, "Articles");
    product = outline.find("Product").get();
    outline.attributes().associate(product, outline.find("Size").get());
    outline.build(Place.firstBelow(product), Arrays.asList(
        new NewMember("Drinks", new Changes().uda("Cold").uda("Wet").formula("@SUM(Cola);"))
            .add(new NewMember("Cola", new Changes().attribute("Small").alias("French", "Coca")
                .extendedComment("long").consolidation(Consolidation.SUBTRACT).twoPass(true)))
            .add(new NewMember("Tea")),
        new NewMember("Food").add(new NewMember("Bread", new Changes().attribute("Large"))),
        new NewMember("All")));
    // A shared member has the name of its base.
    Member shared = outline.create(Place.lastBelow(find("All")),
        new NewMember("Shared", new Changes().share(Share.SHARED)));
    outline.rename(shared, "Cola");
  }

  @Override
  protected void after() {
    store.close();
  }

  Member find(String name) {
    return outline.find(name, Details.NONE.place()).get();
  }

  List<Member> some(String... names) {
    List<Member> members = new ArrayList<>();
    for (String name : names) {
      members.add(find(name));
    }
    return members;
  }

  /** Everything that can be read of the outline, a line a member. */
  String everything() {
    Details details = MemberParts.all(outline);
    StringBuilder text = new StringBuilder();
    for (Member dimension : outline.dimensions()) {
      text.append(outline.generations().given(dimension)).append(outline.levels().given(dimension))
          .append(dimension.category()).append(dimension.storageTypeCode())
          .append(dimension.category() == DimensionCategory.ATTRIBUTE
              ? dimension.attributeTypeCode() : 0)
          .append(dimension.isHybridAnalysisEnabled()).append('\n');
      try (Stream<Member> all = outline.subtree(dimension, details)) {
        all.forEach(m -> text.append(m.generation()).append(m.name()).append(m.consolidation())
            .append(m.share()).append(m.isTwoPass()).append(m.isExpense()).append(m.comment())
            .append(m.extendedComment()).append(m.formula()).append(m.udas())
            .append(m.attributes()).append(details.aliasTables().stream()
                .map(m::alias).collect(Collectors.toList()))
            .append(m.timeBalanceCode()).append(m.conversionCode()).append('\n'));
      }
    }
    return text.append(outline.timeSeries().enabled()).append(outline.aliasTables().names())
        .append(outline.settings().read()).append(outline.attributes().settings()).toString();
  }

  /** Does an edit, undoes it and does it again, twice. */
  void check(Edit edit) {
    String before = everything();
    edit.apply(context);
    String after = everything();
    assertNotEquals(edit.title(), before, after);
    for (int round = 0; round < 2; round++) {
      edit.revert(context);
      assertEquals("undone: " + edit.title(), before, everything());
      edit.apply(context);
      assertEquals("done again: " + edit.title(), after, everything());
    }
  }
}
