package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.CodedValue;
import com.olvane.kep.olvane.outline.Attributes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Function;
import java.util.stream.Collectors;

/** What holds for the whole outline. */
final class SettingsRows {
  private static final int NAME_LIMIT = 80;

  /** A setting: as a text it is read of an outline, and set. */
  static final class Setting {
    final String label;
    final Function<Outline, String> read;
    private final BiConsumer<Outline, String> set;
    /** Gives the reason why a text is refused, or null; null itself for yes or no. */
    private final Function<String, String> refusal;

    private Setting(String label, Function<Outline, String> read,
        BiConsumer<Outline, String> set, Function<String, String> refusal) {
      this.label = label;
      this.read = read;
      this.set = set;
      this.refusal = refusal;
    }

    Edit edit(String value) {
      return Edit.set("Set '" + label + "' to " + value,
          context -> read.apply(context.outline),
          (context, text) -> set.accept(context.outline, text), value);
    }
  }

  private SettingsRows() {}

  /** Reads the settings, whatever is selected. */
  static RowsPane.Contents read(Workspace workspace, List<Member> selected) {
    RowsPane.Contents contents = new RowsPane.Contents("settings", "", "");
    contents.add(RowsPane.Place.ALONE, "Outline", rows(workspace, ofOutline()));
    contents.add(RowsPane.Place.ALONE, "Attributes", rows(workspace, ofAttributes()));
    return contents;
  }

  private static List<Row> rows(Workspace workspace, List<Setting> settings) {
    return settings.stream().map(one -> {
      String now = one.read.apply(workspace.outline);
      return one.refusal == null
          ? Row.yesNo(one.label, now.equals("yes"),
              yes -> workspace.edit(one.edit(yes ? "yes" : "no")))
          : Row.typed(one.label, now, one.refusal, text -> workspace.edit(one.edit(text)));
    }).collect(Collectors.toList());
  }

  static List<Setting> ofOutline() {
    List<Setting> all = new ArrayList<>();
    all.add(new Setting("Upper and lower case make different names",
        outline -> outline.settings().read().isCaseSensitive() ? "yes" : "no",
        (outline, text) -> outline.settings().setCaseSensitive(text.equals("yes")), null));
    all.add(new Setting("Dimensions are configured automatically",
        outline -> outline.settings().read().isAutoConfigure() ? "yes" : "no",
        (outline, text) -> outline.settings().setAutoConfigure(text.equals("yes")), null));
    return all;
  }

  static List<Setting> ofAttributes() {
    List<Setting> all = new ArrayList<>();
    for (Attributes.Name which : Attributes.Name.values()) {
      String words = which.words();
      all.add(new Setting(Character.toUpperCase(words.charAt(0)) + words.substring(1),
          outline -> name(which, outline.attributes().settings()),
          (outline, text) -> outline.attributes().set(which, text),
          text -> text.isEmpty() ? "A name is needed here." : Row.atMost(NAME_LIMIT).apply(text)));
    }
    addNumber(all, "Long names are built of", Short.MAX_VALUE,
        AttributeSettings::getLongNameConstructor);
    addNumber(all, "Long names use", Short.MAX_VALUE, AttributeSettings::getLongNameSource);
    addNumber(all, "Long names are divided by", Byte.MAX_VALUE,
        AttributeSettings::getLongNameDelimiter);
    addNumber(all, "Format of dates", Short.MAX_VALUE, AttributeSettings::getDateFormat);
    addNumber(all, "Bounds of ranges", Short.MAX_VALUE, AttributeSettings::getBucketingType);
    return all;
  }

  private static String name(Attributes.Name which, AttributeSettings settings) {
    String[] inOrder = {settings.getTrueText(), settings.getFalseText(),
      settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
      settings.getAverage(), settings.getMinimum(), settings.getMaximum()};
    String name = inOrder[which.ordinal()];
    return name == null ? "" : name;
  }

  /** Adds a number that the outline's API has no words for. */
  private static void addNumber(List<Setting> all, String label, int limit,
      Function<AttributeSettings, CodedValue> code) {
    all.add(new Setting(label + " (a number)",
        outline -> Short.toString(code.apply(outline.attributes().settings()).getValue()),
        (outline, text) -> {
          AttributeSettings now = outline.attributes().settings();
          code.apply(now).setValue(Short.parseShort(text));
          outline.attributes().setLongNames(now.getLongNameConstructor(),
              now.getLongNameSource(), now.getLongNameDelimiter());
          outline.attributes().setDateFormat(now.getDateFormat());
          outline.attributes().setRanges(now.getBucketingType());
        }, Row.number(limit)));
  }
}
