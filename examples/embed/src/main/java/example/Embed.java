package example;

import com.olvane.kep.olvane.api.jni.NativeLibrary;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Store;
import java.util.stream.Stream;

/** Makes an outline of one dimension in a new database, saves it and prints it. */
public final class Embed {
  private Embed() {}

  /**
   * Runs the example.
   *
   * @param arguments the folder of the databases
   */
  public static void main(String[] arguments) {
    try (Store store = Store.open(arguments[0], "anna")) {
      store.create("Demo", "Year");
      try (Outline outline = store.edit("Demo", "Year")) {
        Member year = outline.create(Place.lastDimension(), new NewMember("Year"));
        for (int quarter = 1; quarter <= 4; quarter++) {
          outline.create(Place.lastBelow(year), new NewMember("Q" + quarter));
        }
        outline.save();
      }
      try (Outline outline = store.browse("Demo", "Year")) {
        for (Member dimension : outline.dimensions()) {
          System.out.println(dimension.name());
          try (Stream<Member> children = outline.children(dimension, Details.NONE)) {
            children.forEach(child -> System.out.println("  " + child.name()));
          }
        }
      }
    }
    System.out.println("with " + NativeLibrary.location());
  }
}
