package com.olvane.kep.olvane.cli.demo;

import com.olvane.kep.olvane.standin.StatusException;

/** One part of the demo. */
interface Act {
  /** {@return the heading of the act} */
  String title();

  /**
   * Plays the act.
   *
   * @param tour what the acts share
   * @throws StatusException if an outline operation fails
   * @throws DifferenceException if an outline is not what it should be
   */
  void play(Tour tour);
}
