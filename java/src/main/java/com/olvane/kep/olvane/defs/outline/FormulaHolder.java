package com.olvane.kep.olvane.defs.outline;

/** Receives the formula of a member. */
public interface FormulaHolder {
  /**
   * Takes the formula. Not called for a member that has none.
   *
   * @param formula the formula text
   */
  void setFormula(String formula);
}
