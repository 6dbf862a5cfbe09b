package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Place;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Random;
import java.util.concurrent.CancellationException;
import java.util.stream.IntStream;
import java.util.stream.Stream;
import org.junit.Rule;
import org.junit.Test;

/** Edits of members, done, undone and done again without a window. */
public class MemberEditsTest {
  @Rule public final SampleOutline sample = new SampleOutline();

  @Test
  public void everyEditComesBack() {
    sample.check(MemberEdits.create(Target.lastBelow(Ref.to(sample.find("Food"))), "New member"));
    sample.check(MemberEdits.create(Target.before(Ref.to(sample.find("Food"))), "New member"));
    sample.check(MemberEdits.create(Target.lastBelow(null), "New dimension"));
    sample.check(MemberEdits.rename(sample.find("Tea"), "Th\u00e9 \ud83c\udf75"));
    sample.check(MemberEdits.change("Change both", sample.some("Drinks", "Food"), member -> {
      Changes changes = new Changes().consolidation(Consolidation.NONE).formula("")
          .alias("French", member.name()).uda("New").comment("c").expense(true);
      return member.udas().contains("Cold") ? changes.withoutUda("Cold") : changes;
    }));
    sample.check(MemberEdits.sort(sample.find("Product"), true));
    sample.check(MemberEdits.sort(sample.find("Product"), false));
    sample.check(MemberEdits.move(sample.some("Bread", "All"), Target.firstBelow(Ref.to(sample.find("Drinks")))));
    sample.check(MemberEdits.copy(sample.some("Drinks"), Target.lastBelow(Ref.to(sample.find("Food")))));
    sample.check(MemberEdits.delete(sample.some("Food", "Drinks")));
    sample.check(MemberEdits.copy(sample.some("Size"), Target.behind(Ref.to(sample.find("Size")))));
  }

  @Test
  public void aCopyOfALongNameGetsAShorterOneThatIsFree() {
    String longest = String.join("", Collections.nCopies(26, "名")) + "no";
    sample.check(MemberEdits.rename(sample.find("Tea"), longest));
    sample.check(MemberEdits.copy(sample.some(longest), Target.behind(Ref.to(sample.find(longest)))));
    sample.find(String.join("", Collections.nCopies(26, "名")) + " 2");
  }

  @Test
  public void deletedDimensionsComeBackWhole() {
    sample.check(MemberEdits.delete(sample.some("Product")));
  }

  @Test
  public void deletedAttributesComeBackToTheirCarriers() {
    sample.check(MemberEdits.delete(sample.some("Large")));
  }

  @Test
  public void aDeletedAttributeDimensionComesBack() {
    sample.check(MemberEdits.delete(sample.some("Size")));
  }

  @Test
  public void aDeletedAttributeDimensionComesBackBesideItsCopy() {
    sample.check(MemberEdits.copy(sample.some("Size"), Target.behind(Ref.to(sample.find("Size")))));
    sample.find("Large 2");
    sample.check(MemberEdits.delete(sample.some("Size")));
  }

  @Test
  public void aDeletedTimeDimensionComesBack() {
    sample.check(MemberEdits.delete(sample.some("Year")));
  }

  @Test
  public void aMoveToAnotherDimensionComesBackWithAssociations() {
    sample.check(MemberEdits.move(sample.some("Food"), Target.lastBelow(Ref.to(sample.find("Year")))));
  }

  @Test
  public void whatIsRefusedLeavesNothing() {
    String before = sample.everything();
    for (Edit edit : Arrays.asList(
        MemberEdits.rename(sample.find("Tea"), "Product"),
        MemberEdits.change("Fail", sample.some("Drinks", "Tea"),
            member -> new Changes().uda("Cold").attribute("Nowhere")),
        MemberEdits.move(sample.some("Bread", "Food"), Target.firstBelow(Ref.to(sample.find("Bread")))),
        MemberEdits.copy(sample.some("Year"), Target.lastBelow(Ref.to(sample.find("Food")))),
        MemberEdits.copy(sample.some("Drinks"), Target.lastBelow(Ref.to(sample.find("Drinks")))))) {
      try {
        edit.apply(sample.context);
        throw new AssertionError("not refused: " + edit.title());
      } catch (RuntimeException e) {
        assertEquals(edit.title(), before, sample.everything());
      }
    }
  }

  @Test
  public void aCopyThatIsGivenUpLeavesNothing() {
    sample.outline.build(Place.firstBelow(sample.find("Food")), () -> IntStream.range(0, 5000)
        .mapToObj(i -> new NewMember("Food " + i)).iterator());
    String before = sample.everything();
    long[] done = {0};
    sample.context.begin((copied, total) -> {
      assertEquals(5002, total);
      done[0] = copied;
      return copied < 1000;
    });
    try {
      MemberEdits.copy(sample.some("Food"), Target.lastBelow(Ref.to(sample.find("Drinks"))))
          .apply(sample.context);
      throw new AssertionError("not given up");
    } catch (CancellationException e) {
      assertTrue("in the middle: " + done[0], done[0] >= 1000 && done[0] < 5000);
      assertEquals(before, sample.everything());
    }
  }

  /** Random edits one after the other, then all undone and done again. */
  @Test
  public void aLongHistoryIsWalkedBothWays() {
    Random random = new Random(7);
    History history = new History();
    List<String> states = new ArrayList<>();
    states.add(sample.everything());
    for (int step = 0; step < 150; step++) {
      List<Member> all = new ArrayList<>();
      try (Stream<Member> members = sample.outline.subtree(sample.find("Product"), Details.NONE)) {
        members.skip(1).forEach(all::add);
      }
      Member one = all.get(random.nextInt(all.size()));
      Member other = all.get(random.nextInt(all.size()));
      Edit edit = randomEdit(random.nextInt(7), one, other, step);
      try {
        edit.apply(sample.context);
      } catch (RuntimeException e) {
        assertEquals("refused: " + edit.title(), states.get(states.size() - 1), sample.everything());
        continue;
      }
      history.add(edit);
      states.add(sample.everything());
    }
    assertTrue("most are allowed: " + states.size(), states.size() > 100);
    for (int round = 0; round < 2; round++) {
      while (history.toUndo() != null) {
        String title = history.toUndo().title();
        history.undo(sample.context);
        assertEquals("undone: " + title, states.get(history.done), sample.everything());
      }
      while (history.toRedo() != null) {
        String title = history.toRedo().title();
        history.redo(sample.context);
        assertEquals("done again: " + title, states.get(history.done), sample.everything());
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
        return MemberEdits.change("Change", Arrays.asList(one), member -> new Changes()
            .alias("French", "A" + step).formula("F" + step).uda("U" + step));
    }
  }
}
