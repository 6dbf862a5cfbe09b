package com.olvane.kep.olvane.defs.outline;

/** The formula of a member. */
public final class Formula implements FormulaHolder {
  private String formula;

  /** Creates an empty object. */
  public Formula() {}

  /** {@return the formula text, or null if the member has none} */
  public String getFormula() {
    return formula;
  }

  /**
   * Sets the formula text, or null if the member has none.
   *
   * @param formula the formula text
   */
  @Override
  public void setFormula(String formula) {
    this.formula = formula;
  }

  @Override
  public String toString() {
    return "Formula[formula=" + formula + "]";
  }
}
