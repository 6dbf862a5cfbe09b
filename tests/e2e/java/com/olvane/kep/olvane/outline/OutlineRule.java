package com.olvane.kep.olvane.outline;

import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.standin.Ledger;
import com.olvane.kep.olvane.standin.StandinSession;
import org.junit.rules.ExternalResource;

/**
 * A store with the database Test.Test, open for editing with one dimension. When a test is over,
 * the API's memory must all have come back.
 */
final class OutlineRule extends ExternalResource {
  static final String APPLICATION = "Test";
  static final String DATABASE = "Test";

  String address;
  Store store;
  Outline outline;
  Member dimension;
  private Ledger before;

  @Override
  protected void before() {
    address = Settings.newStore();
    store = Store.open(address, "tester");
    store.create(APPLICATION, DATABASE);
    before = StandinSession.memory();
    outline = store.edit(APPLICATION, DATABASE);
    dimension = outline.create(Place.firstDimension(), new NewMember("Product"));
  }

  @Override
  protected void after() {
    store.close();
    Ledger now = StandinSession.memory();
    assertEquals("blocks not given back", before.outstanding(), now.outstanding());
    assertEquals("wrong releases", before.wrongReleases(), now.wrongReleases());
  }

  /** Saves the outline and opens it again for browsing. */
  Outline reopened() {
    outline.save();
    return store.browse(APPLICATION, DATABASE);
  }

  /** Plans so many members named by a prefix and a number. */
  static Iterable<NewMember> numbered(String prefix, int count) {
    return () -> java.util.stream.IntStream.range(0, count)
        .mapToObj(i -> new NewMember(prefix + i)).iterator();
  }
}
