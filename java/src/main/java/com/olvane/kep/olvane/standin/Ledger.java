package com.olvane.kep.olvane.standin;

/** What the engine has counted of the memory blocks that it handed to this process. */
public final class Ledger {
  private final long handedOut;
  private final long givenBack;
  private final long wrongReleases;
  private final long outstanding;

  Ledger(long handedOut, long givenBack, long wrongReleases, long outstanding) {
    this.handedOut = handedOut;
    this.givenBack = givenBack;
    this.wrongReleases = wrongReleases;
    this.outstanding = outstanding;
  }

  /** {@return the number of blocks handed out so far} */
  public long handedOut() {
    return handedOut;
  }

  /** {@return the number of blocks given back so far} */
  public long givenBack() {
    return givenBack;
  }

  /** {@return the number of releases that did not fit a block} */
  public long wrongReleases() {
    return wrongReleases;
  }

  /** {@return the number of blocks not given back yet} */
  public long outstanding() {
    return outstanding;
  }

  @Override
  public String toString() {
    return handedOut + " blocks handed out, " + givenBack + " given back, " + outstanding
        + " outstanding, " + wrongReleases + " wrong releases";
  }
}
