package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNotEquals;
import static org.junit.Assert.assertTrue;

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
import java.util.Collections;
import java.util.List;
import java.util.Random;
import java.util.stream.Stream;
import org.junit.After;
import org.junit.Before;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;

/** Edits of members, done, undone and done again without a window. */
public class MemberEditsTest {
  @Rule public TemporaryFolder folder = new TemporaryFolder();

  private Store store;
  private Outline outline;
  private EditContext context;

  @Before
  public void open() {
    store = Store.open(folder.getRoot().getPath(), "tester");
    store.create("Test", "Test");
    outline = store.edit("Test", "Test");
    context = new EditContext(outline);
    outline.aliasTables().create("French");
    Member product = outline.create(Place.lastDimension(), new NewMember("Product",
        new Changes().comment("what is sold")));
    Member size = outline.create(Place.lastDimension(), new NewMember("Size")
        .add(new NewMember("Small")).add(new NewMember("Large")));
    outline.categorise(size, DimensionCategory.ATTRIBUTE);
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

  @After
  public void close() {
    store.close();
  }

  private Member find(String name) {
    return outline.find(name, Details.NONE.place()).get();
  }

  private List<Member> some(String... names) {
    List<Member> members = new ArrayList<>();
    for (String name : names) {
      members.add(find(name));
    }
    return members;
  }

  /** Everything that can be read of the outline, a line a member. */
  private String everything() {
    Details details = ChangeEdit.all(outline);
    StringBuilder text = new StringBuilder();
    for (Member dimension : outline.dimensions()) {
      text.append(outline.generations().given(dimension)).append(outline.levels().given(dimension))
          .append(dimension.category()).append(dimension.storageTypeCode()).append('\n');
      try (Stream<Member> all = outline.subtree(dimension, details)) {
        all.forEach(m -> text.append(m.generation()).append(m.name()).append(m.consolidation())
            .append(m.share()).append(m.isTwoPass()).append(m.isExpense()).append(m.comment())
            .append(m.extendedComment()).append(m.formula()).append(m.udas())
            .append(m.attributes()).append(m.alias("Default")).append(m.alias("French"))
            .append(m.timeBalanceCode()).append(m.conversionCode()).append('\n'));
      }
    }
    return text.append(outline.timeSeries().enabled()).toString();
  }

  /** Does an edit, undoes it and does it again, twice. */
  private void check(Edit edit) {
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

  @Test
  public void everyEditComesBack() {
    check(MemberEdits.create(Target.lastBelow(Ref.to(find("Food"))), "New member"));
    check(MemberEdits.create(Target.before(Ref.to(find("Food"))), "New member"));
    check(MemberEdits.create(Target.lastBelow(null), "New dimension"));
    check(MemberEdits.rename(find("Tea"), "Th\u00e9 \ud83c\udf75"));
    check(MemberEdits.change("Change both", some("Drinks", "Food"), member -> {
      Changes changes = new Changes().consolidation(Consolidation.NONE).formula("")
          .alias("French", member.name()).uda("New").comment("c").expense(true);
      return member.udas().contains("Cold") ? changes.withoutUda("Cold") : changes;
    }));
    check(MemberEdits.sort(find("Product"), true));
    check(MemberEdits.sort(find("Product"), false));
    check(MemberEdits.move(some("Bread", "All"), Target.firstBelow(Ref.to(find("Drinks")))));
    check(MemberEdits.copy(some("Drinks"), Target.lastBelow(Ref.to(find("Food")))));
    check(MemberEdits.delete(some("Food", "Drinks")));
  }

  @Test
  public void deletedDimensionsComeBackWhole() {
    check(MemberEdits.delete(some("Product")));
  }

  @Test
  public void deletedAttributesComeBackToTheirCarriers() {
    check(MemberEdits.delete(some("Large")));
  }

  @Test
  public void aDeletedAttributeDimensionComesBack() {
    check(MemberEdits.delete(some("Size")));
  }

  @Test
  public void aDeletedTimeDimensionComesBack() {
    check(MemberEdits.delete(some("Year")));
  }

  @Test
  public void aMoveToAnotherDimensionComesBackWithAssociations() {
    check(MemberEdits.move(some("Food"), Target.lastBelow(Ref.to(find("Year")))));
  }

  @Test
  public void whatIsRefusedLeavesNothing() {
    String before = everything();
    for (Edit edit : Arrays.asList(
        MemberEdits.rename(find("Tea"), "Product"),
        MemberEdits.change(some("Drinks", "Tea"), new Changes().uda("Cold").attribute("Nowhere")),
        MemberEdits.move(some("Bread", "Food"), Target.firstBelow(Ref.to(find("Bread")))),
        MemberEdits.copy(some("Drinks"), Target.lastBelow(Ref.to(find("Drinks")))))) {
      try {
        edit.apply(context);
        throw new AssertionError("not refused: " + edit.title());
      } catch (RuntimeException e) {
        assertEquals(edit.title(), before, everything());
      }
    }
  }

  /** Random edits one after the other, then all undone and done again. */
  @Test
  public void aLongHistoryIsWalkedBothWays() {
    Random random = new Random(7);
    History history = new History();
    List<String> states = new ArrayList<>();
    states.add(everything());
    for (int step = 0; step < 150; step++) {
      List<Member> all = new ArrayList<>();
      try (Stream<Member> members = outline.subtree(find("Product"), Details.NONE)) {
        members.skip(1).forEach(all::add);
      }
      Member one = all.get(random.nextInt(all.size()));
      Member other = all.get(random.nextInt(all.size()));
      Edit edit = randomEdit(random.nextInt(7), one, other, step);
      try {
        edit.apply(context);
      } catch (RuntimeException e) {
        assertEquals("refused: " + edit.title(), states.get(states.size() - 1), everything());
        continue;
      }
      history.add(edit);
      states.add(everything());
    }
    assertTrue("most are allowed: " + states.size(), states.size() > 100);
    for (int round = 0; round < 2; round++) {
      while (history.toUndo() != null) {
        String title = history.toUndo().title();
        history.toUndo().revert(context);
        history.undone();
        assertEquals("undone: " + title, states.get(history.position()), everything());
      }
      while (history.toRedo() != null) {
        String title = history.toRedo().title();
        history.toRedo().apply(context);
        history.redone();
        assertEquals("done again: " + title, states.get(history.position()), everything());
      }
    }
    assertTrue(history.dirty());
    history.saved();
    assertFalse(history.dirty());
  }

  private Edit randomEdit(int kind, Member one, Member other, int step) {
    switch (kind) {
      case 0:
        return MemberEdits.create(Target.behind(Ref.to(one)), "Member " + step);
      case 1:
        return MemberEdits.rename(one, "Name " + step);
      case 2:
        return MemberEdits.move(Collections.singletonList(one), Target.lastBelow(Ref.to(other)));
      case 3:
        return MemberEdits.delete(Collections.singletonList(one));
      case 4:
        return MemberEdits.copy(Collections.singletonList(one), Target.behind(Ref.to(other)));
      case 5:
        return MemberEdits.sort(one, step % 2 == 0);
      default:
        return MemberEdits.change(Arrays.asList(one), new Changes().alias("French", "A" + step)
            .formula("F" + step).uda("U" + step));
    }
  }
}
