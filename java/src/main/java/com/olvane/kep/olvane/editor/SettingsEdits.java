package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;
import com.olvane.kep.olvane.outline.Attributes;
import com.olvane.kep.olvane.outline.Outline;
import java.util.function.BiConsumer;
import java.util.function.Function;

/** The edits of what holds for the whole outline. */
final class SettingsEdits {
  private SettingsEdits() {}

  private static <T> Edit set(
      String title, Function<Outline, T> read, BiConsumer<Outline, T> write, T value) {
    return new StateEdit<>(title, context -> read.apply(context.outline()),
        context -> write.accept(context.outline(), value),
        (context, before) -> write.accept(context.outline(), before), OutlineChange::settings);
  }

  static Edit caseSensitive(boolean sensitive) {
    return set(sensitive ? "Tell upper from lower case in names"
        : "Take upper and lower case in names as the same",
        outline -> outline.settings().read().isCaseSensitive(),
        (outline, value) -> outline.settings().setCaseSensitive(value), sensitive);
  }

  static Edit autoConfigure(boolean enabled) {
    return set((enabled ? "Enable" : "Disable") + " the automatic configuration",
        outline -> outline.settings().read().isAutoConfigure(),
        (outline, value) -> outline.settings().setAutoConfigure(value), enabled);
  }

  static Edit name(Attributes.Name which, String name) {
    return set("Set the " + which.words(), outline -> name(which, outline.attributes().settings()),
        (outline, value) -> outline.attributes().set(which, value), name);
  }

  /** The name that the settings have. */
  static String name(Attributes.Name which, AttributeSettings settings) {
    String name = SettingsPane.reader(which).apply(settings);
    return name == null ? "" : name;
  }

  /** A number that the settings keep without words. */
  enum Number {
    /** What long names are built of. */
    LONG_NAMES("Long names are built of", s -> s.getLongNameConstructor().getValue()),
    /** The names used in long names. */
    SOURCE("Long names use", s -> s.getLongNameSource().getValue()),
    /** What stands between the parts of a long name. */
    DELIMITER("Long names are divided by", s -> s.getLongNameDelimiter().getValue()),
    /** The format of dates. */
    DATES("Format of dates", s -> s.getDateFormat().getValue()),
    /** The bounds of ranges. */
    RANGES("Bounds of ranges", s -> s.getBucketingType().getValue());

    final String words;
    final Function<AttributeSettings, Short> read;

    Number(String words, Function<AttributeSettings, Short> read) {
      this.words = words;
      this.read = read;
    }

    private void write(Outline outline, short value) {
      AttributeSettings now = outline.attributes().settings();
      switch (this) {
        case LONG_NAMES:
          outline.attributes().setLongNames(new LongNameConstructor(value),
              now.getLongNameSource(), now.getLongNameDelimiter());
          break;
        case SOURCE:
          outline.attributes().setLongNames(now.getLongNameConstructor(),
              new LongNameSource(value), now.getLongNameDelimiter());
          break;
        case DELIMITER:
          outline.attributes().setLongNames(now.getLongNameConstructor(),
              now.getLongNameSource(), new LongNameDelimiter(value));
          break;
        case DATES:
          outline.attributes().setDateFormat(new AttributeDateFormat(value));
          break;
        default:
          outline.attributes().setRanges(new BucketingType(value));
      }
    }
  }

  static Edit number(Number which, short value) {
    return set("Set '" + which.words + "' to " + value,
        outline -> which.read.apply(outline.attributes().settings()), which::write, value);
  }
}
