package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;

/** The settings of a whole outline. */
public final class Settings {
  private final Access access;

  Settings(Access access) {
    this.access = access;
  }

  /** {@return the settings as they are now; to change the object changes nothing} */
  public OutlineSettings read() {
    OutlineSettings settings = new OutlineSettings();
    access.read("read the settings of " + access.name(),
        (i, o) -> OutlineJni.getSettings(i, o, settings));
    return settings;
  }

  /**
   * Sets whether upper and lower case make different names.
   *
   * @param caseSensitive true if so
   */
  public void setCaseSensitive(boolean caseSensitive) {
    access.edit("change the case setting of " + access.name(),
        (i, o) -> OutlineJni.updateCaseSensitivity(i, o, caseSensitive));
  }

  /**
   * Sets whether dimensions are configured automatically.
   *
   * @param enabled true if so
   */
  public void setAutoConfigure(boolean enabled) {
    access.edit("change the automatic configuration of " + access.name(),
        (i, o) -> OutlineJni.updateAutoConfigure(i, o, enabled));
  }
}
