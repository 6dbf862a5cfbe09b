package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.CodedValue;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.outline.Attributes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Function;

/** What holds for the whole outline. */
final class SettingsRows {
  private static final int NAME_LIMIT = 80;

  private SettingsRows() {}

  /** Reads the settings, whatever is selected. */
  static RowsPane.Contents read(Workspace workspace, List<Member> selected) {
    OutlineSettings settings = workspace.outline.settings().read();
    AttributeSettings attributes = workspace.outline.attributes().settings();
    List<Row> rows = new ArrayList<>();
    for (Attributes.Name which : Attributes.Name.values()) {
      String words = which.words();
      rows.add(Row.typed(Character.toUpperCase(words.charAt(0)) + words.substring(1),
          name(which, attributes), text -> text.isEmpty() ? "A name is needed here."
              : Row.atMost(NAME_LIMIT).apply(text),
          text -> workspace.edit(name(which, text))));
    }
    for (Number which : Number.values()) {
      rows.add(number(workspace, which.words + " (a number)",
          which.code.apply(attributes).getValue(), which.limit, value -> number(which, value)));
    }
    RowsPane.Contents contents = new RowsPane.Contents("settings", "", "");
    contents.add(RowsPane.Place.ALONE, "Outline", Arrays.asList(
        Row.yesNo("Upper and lower case make different names", settings.isCaseSensitive(),
            value -> workspace.edit(caseSensitive(value))),
        Row.yesNo("Dimensions are configured automatically", settings.isAutoConfigure(),
            value -> workspace.edit(autoConfigure(value)))));
    contents.add(RowsPane.Place.ALONE, "Attributes", rows);
    return contents;
  }

  /** A row for a number that the outline's API has no words for. */
  static Row number(Workspace workspace, String label, short value, int limit,
      Function<Short, Edit> edit) {
    return Row.typed(label, Short.toString(value), text ->
        text.matches("-?\\d{1,5}") && Math.abs(Integer.parseInt(text)) <= limit ? null
            : "A number from " + -limit + " to " + limit + " is needed here.",
        text -> workspace.edit(edit.apply(Short.valueOf(text))));
  }

  // ---- Edits ----

  private static <T> Edit set(
      String title, Function<Outline, T> read, BiConsumer<Outline, T> write, T value) {
    return Edit.set(title, OutlineChange::settings, context -> read.apply(context.outline),
        (context, now) -> write.accept(context.outline, now), value);
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

  private static String name(Attributes.Name which, AttributeSettings settings) {
    String[] inOrder = {settings.getTrueText(), settings.getFalseText(),
      settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
      settings.getAverage(), settings.getMinimum(), settings.getMaximum()};
    String name = inOrder[which.ordinal()];
    return name == null ? "" : name;
  }

  /** A number that the settings keep without words. */
  enum Number {
    /** What long names are built of. */
    LONG_NAMES("Long names are built of", AttributeSettings::getLongNameConstructor),
    /** The names used in long names. */
    SOURCE("Long names use", AttributeSettings::getLongNameSource),
    /** What stands between the parts of a long name. */
    DELIMITER("Long names are divided by", AttributeSettings::getLongNameDelimiter),
    /** The format of dates. */
    DATES("Format of dates", AttributeSettings::getDateFormat),
    /** The bounds of ranges. */
    RANGES("Bounds of ranges", AttributeSettings::getBucketingType);

    private final String words;
    private final Function<AttributeSettings, CodedValue> code;
    private final int limit;

    Number(String words, Function<AttributeSettings, CodedValue> code) {
      this.words = words;
      this.code = code;
      limit = name().equals("DELIMITER") ? Byte.MAX_VALUE : Short.MAX_VALUE;
    }

    private void write(Outline outline, short value) {
      AttributeSettings now = outline.attributes().settings();
      code.apply(now).setValue(value);
      outline.attributes().setLongNames(now.getLongNameConstructor(), now.getLongNameSource(),
          now.getLongNameDelimiter());
      outline.attributes().setDateFormat(now.getDateFormat());
      outline.attributes().setRanges(now.getBucketingType());
    }
  }

  static Edit number(Number which, short value) {
    return set("Set '" + which.words + "' to " + value,
        outline -> which.code.apply(outline.attributes().settings()).getValue(), which::write,
        value);
  }
}
