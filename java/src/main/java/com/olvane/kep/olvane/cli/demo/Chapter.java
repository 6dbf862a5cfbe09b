package com.olvane.kep.olvane.cli.demo;

import java.util.function.Supplier;

/** The acts of the demo, in the order in which they are played. */
enum Chapter {
  /** Builds the outline. */
  BUILD(BuildAct::new),
  /** Reads everything back and compares it. */
  COMPARE(CompareAct::new),
  /** Looks around. */
  BROWSE(BrowseAct::new),
  /** Reads settings, names and lists. */
  READING(ReadingAct::new),
  /** Edits a draft. */
  EDITING(EditingAct::new),
  /** Verifies, saves and derives. */
  LIFE(LifeAct::new),
  /** Searches. */
  SEARCH(SearchAct::new);

  private final Supplier<Act> maker;

  Chapter(Supplier<Act> maker) {
    this.maker = maker;
  }

  /** {@return a new act} */
  Act act() {
    return maker.get();
  }
}
