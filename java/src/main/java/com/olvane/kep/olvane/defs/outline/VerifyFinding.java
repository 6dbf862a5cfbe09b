package com.olvane.kep.olvane.defs.outline;

import java.util.List;

/** What a verification finds wrong with an outline or with one of its members. */
public interface VerifyFinding {
  /**
   * Says what is wrong.
   *
   * @return one sentence per error bit; a bit that has no sentence is told by its number
   */
  List<String> getSentences();
}
