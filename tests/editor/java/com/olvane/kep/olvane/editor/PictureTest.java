package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Place;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.stream.Stream;
import javax.imageio.ImageIO;
import javax.xml.parsers.DocumentBuilderFactory;
import org.junit.Rule;
import org.junit.Test;

/** The layout of pictures against the outline itself, and their files. */
public class PictureTest {
  @Rule public final SampleOutline sample = new SampleOutline();

  private final Map<String, Integer> places = new HashMap<>();

  private Picture picture() {
    Picture picture = new Picture(null);
    for (Member dimension : sample.outline.dimensions()) {
      try (Stream<Member> all = sample.outline.subtree(dimension, Details.NONE)) {
        all.forEach(member -> {
          places.put(member.name(), picture.count);
          picture.add(member);
        });
      }
    }
    picture.finish();
    return picture;
  }

  /** Blocks of a column don't overlap, lie within their parents', and no member is lost. */
  private static void check(Picture picture, List<Picture.Block> blocks, double height) {
    Set<Integer> seen = new HashSet<>();
    Map<Integer, Double> ends = new HashMap<>();
    for (Picture.Block block : blocks) {
      assertTrue("overlap", block.start >= ends.getOrDefault(block.column, 0.0) - 1e-6);
      ends.put(block.column, block.start + block.length);
      assertTrue("out of the picture", block.start + block.length <= height + 1e-6);
      int member = block.first;
      for (int i = 0; i < block.siblings; i++) {
        assertTrue("drawn twice", seen.add(member));
        member += picture.sizes[member];
      }
      int parent = picture.parents[block.first];
      assertTrue("without its parent", block.column == 0 || seen.contains(parent));
    }
  }

  @Test
  public void smallPartsAreMergedAndNothingIsLost() {
    List<NewMember> many = new ArrayList<>();
    for (int i = 0; i < 3000; i++) {
      many.add(new NewMember("Many " + i));
    }
    sample.outline.build(Place.firstBelow(sample.find("Food")), many);
    Picture picture = picture();
    int food = places.get("Food");
    assertEquals(3002, picture.sizes[food]);
    assertEquals(picture.find(sample.find("Bread").handle()), (int) places.get("Bread"));
    for (boolean byLeaves : new boolean[] {true, false}) {
      for (double height : new double[] {10, 500, 5000}) {
        List<Picture.Block> blocks = picture.layOut(-1, height, byLeaves, 12);
        check(picture, blocks, height);
        int below = blocks.stream().filter(one -> picture.parents[one.first] == food)
            .mapToInt(one -> one.siblings).sum();
        assertEquals("children of Food at " + height, 3001, below);
        assertTrue("bounded by the height", blocks.size() < 12 * height);
      }
    }
    List<Picture.Block> zoomed = picture.layOut(food, 10_000, false, 12);
    assertEquals("zoomed in, each is seen", 3002, zoomed.size());
    assertEquals("no more columns than asked for", 1, picture.layOut(food, 99, false, 1).size());
  }

  @Test
  public void membersWithFindingsStandOutAndShowTheWay() {
    Picture picture = picture();
    picture.mark(Collections.singleton(sample.find("Tea").handle()));
    Map<String, Byte> keys = new HashMap<>();
    for (Picture.Block block : picture.layOut(-1, 5000, false, 12)) {
      keys.put(sample.outline.read(new int[] {picture.handles[block.first]}, Details.NONE).get(0)
          .name(), block.key);
    }
    assertEquals(1, picture.marked);
    assertEquals(2, (byte) keys.get("Tea"));
    assertEquals(1, (byte) keys.get("Drinks"));
    assertEquals(1, (byte) keys.get("Product"));
    assertEquals(0, (byte) keys.get("Food"));
    assertEquals(0, (byte) keys.get("Year"));
  }

  @Test
  public void filesShowWhatIsShown() throws Exception {
    sample.outline.rename(sample.find("Tea"), "Tea & <milk>");
    Picture picture = picture();
    PictureView view = new PictureView();
    view.setSize(600, 400);
    List<Picture.Block> blocks = picture.layOut(-1, 400, false, 12);
    blocks.forEach(block -> places.forEach((name, place) -> {
      if (place == block.first) {
        block.name = name;
      }
    }));
    view.show(picture, -1, blocks);
    Path folder = Settings.newFolder();
    view.save(folder.resolve("picture.svg"));
    view.save(folder.resolve("picture.png"));
    String text = DocumentBuilderFactory.newInstance().newDocumentBuilder()
        .parse(folder.resolve("picture.svg").toFile()).getDocumentElement().getTextContent();
    assertTrue(text, text.contains("Tea & <milk>"));
    assertEquals(1200, ImageIO.read(folder.resolve("picture.png").toFile()).getWidth());
    for (String name : new String[] {"picture.svg", "picture.png"}) {
      try {
        view.save(folder.resolve("nowhere").resolve(name));
        throw new AssertionError("written to a folder that is not there");
      } catch (NoSuchFileException e) {
        assertFalse(Files.exists(folder.resolve("nowhere")));
      }
    }
  }
}
