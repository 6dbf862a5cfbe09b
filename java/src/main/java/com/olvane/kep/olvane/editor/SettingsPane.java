package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.outline.Attributes;
import com.olvane.kep.olvane.outline.Outline;
import java.awt.BorderLayout;
import java.util.ArrayList;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Function;
import javax.swing.JPanel;

/** What holds for the whole outline. */
final class SettingsPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;
  private static final int NAME_LIMIT = 80;

  private final transient Workspace workspace;
  private final RowGrid general;
  private final RowGrid attributes;

  SettingsPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    general = new RowGrid("Outline", workspace.isEditable(), 60, 2);
    attributes = new RowGrid("Attributes", workspace.isEditable(), 60, 13);
    Form form = new Form("insets 12, fillx, wrap 1, gapy 10", "[grow,fill,:100:560]");
    form.add(general);
    form.add(attributes);
    add(form.scrolled());
    workspace.addListener(this);
    read();
  }

  @Override
  public void changed(OutlineChange change) {
    if (change.settingsChanged()) {
      read();
    }
  }

  private void read() {
    workspace.read(() -> new Object[] {
        workspace.outline().settings().read(), workspace.outline().attributes().settings()},
        read -> show((OutlineSettings) read[0], (AttributeSettings) read[1]));
  }

  private void show(OutlineSettings settings, AttributeSettings names) {
    List<RowGrid.Row> rows = new ArrayList<>();
    rows.add(RowGrid.Row.yesNo("Upper and lower case make different names",
        settings.isCaseSensitive(), value -> workspace.edit(caseSensitive(value))));
    rows.add(RowGrid.Row.yesNo("Dimensions are configured automatically",
        settings.isAutoConfigure(), value -> workspace.edit(autoConfigure(value))));
    general.show(rows);
    rows = new ArrayList<>();
    for (Attributes.Name which : Attributes.Name.values()) {
      String words = which.words();
      rows.add(RowGrid.Row.typed(Character.toUpperCase(words.charAt(0)) + words.substring(1),
          read(which, names), text -> text.isEmpty() ? "A name is needed here."
              : TextCommit.atMost(NAME_LIMIT).apply(text),
          text -> workspace.edit(name(which, text))));
    }
    for (Number which : Number.values()) {
      rows.add(number(workspace, which.words + " (a number)", which.read.apply(names),
          which == Number.DELIMITER ? Byte.MAX_VALUE : Short.MAX_VALUE,
          value -> number(which, value)));
    }
    attributes.show(rows);
  }

  /** A row for a number that the outline's API has no words for. */
  static RowGrid.Row number(Workspace workspace, String label, short value, int limit,
      Function<Short, Edit> edit) {
    return RowGrid.Row.typed(label, Short.toString(value), text ->
        text.matches("-?\\d{1,5}") && Math.abs(Integer.parseInt(text)) <= limit ? null
            : "A number from " + -limit + " to " + limit + " is needed here.",
        text -> workspace.edit(edit.apply(Short.valueOf(text))));
  }

  // ---- Edits ----

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
    return set("Set the " + which.words(), outline -> read(which, outline.attributes().settings()),
        (outline, value) -> outline.attributes().set(which, value), name);
  }

  private static String read(Attributes.Name which, AttributeSettings settings) {
    String[] inOrder = {settings.getTrueText(), settings.getFalseText(),
      settings.getCalculationDimension(), settings.getSum(), settings.getCount(),
      settings.getAverage(), settings.getMinimum(), settings.getMaximum()};
    String name = inOrder[which.ordinal()];
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

    private final String words;
    private final Function<AttributeSettings, Short> read;

    Number(String words, Function<AttributeSettings, Short> read) {
      this.words = words;
      this.read = read;
    }

    private void write(Outline outline, short value) {
      AttributeSettings now = outline.attributes().settings();
      if (this == DATES) {
        outline.attributes().setDateFormat(new AttributeDateFormat(value));
      } else if (this == RANGES) {
        outline.attributes().setRanges(new BucketingType(value));
      } else {
        outline.attributes().setLongNames(
            this == LONG_NAMES ? new LongNameConstructor(value) : now.getLongNameConstructor(),
            this == SOURCE ? new LongNameSource(value) : now.getLongNameSource(),
            this == DELIMITER ? new LongNameDelimiter(value) : now.getLongNameDelimiter());
      }
    }
  }

  static Edit number(Number which, short value) {
    return set("Set '" + which.words + "' to " + value,
        outline -> which.read.apply(outline.attributes().settings()), which::write, value);
  }
}
