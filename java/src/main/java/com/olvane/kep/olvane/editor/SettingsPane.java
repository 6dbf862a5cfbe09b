package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.outline.Attributes;
import java.util.EnumMap;
import java.util.Map;
import java.util.function.Function;
import javax.swing.JCheckBox;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JSpinner;
import javax.swing.SpinnerNumberModel;
import net.miginfocom.swing.MigLayout;

/** What holds for the whole outline. */
final class SettingsPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;
  private static final int NAME_LIMIT = 80;

  private final transient Workspace workspace;
  private final JCheckBox caseSensitive = new JCheckBox("Upper and lower case make different names");
  private final JCheckBox autoConfigure = new JCheckBox("Dimensions are configured automatically");
  private final transient Map<Attributes.Name, TextCommit> names =
      new EnumMap<>(Attributes.Name.class);
  private final Map<SettingsEdits.Number, JSpinner> numbers =
      new EnumMap<>(SettingsEdits.Number.class);
  private boolean showing;

  SettingsPane(Workspace workspace) {
    super(new MigLayout("insets 0, fill", "[grow,fill]", "[grow,fill]"));
    this.workspace = workspace;
    JPanel form = new DetailsPane.Form(
        new MigLayout("insets 12, wrap 2, hidemode 3", "[][280!,fill]"));
    form.add(DetailsPane.heading("Outline", caseSensitive), "span, gapbottom 4");
    form.add(caseSensitive, "span");
    form.add(autoConfigure, "span, gapbottom 12");
    caseSensitive.addActionListener(event ->
        workspace.edit(SettingsEdits.caseSensitive(caseSensitive.isSelected())));
    autoConfigure.addActionListener(event ->
        workspace.edit(SettingsEdits.autoConfigure(autoConfigure.isSelected())));
    JLabel heading = new JLabel("Attributes");
    heading.setFont(heading.getFont().deriveFont(java.awt.Font.BOLD));
    form.add(heading, "span, gapbottom 4");
    for (Attributes.Name which : Attributes.Name.values()) {
      addName(form, which);
    }
    JLabel codes = new JLabel("The outline keeps the following as numbers of its API.");
    codes.setEnabled(false);
    form.add(codes, "span, gaptop 12");
    for (SettingsEdits.Number which : SettingsEdits.Number.values()) {
      addNumber(form, which);
    }
    JScrollPane scroll = new JScrollPane(form);
    scroll.setBorder(null);
    scroll.getViewport().setOpaque(false);
    add(scroll);
    workspace.addListener(this);
    read();
  }

  private static void addLabel(JPanel form, String text, JComponent of) {
    JLabel label = new JLabel(Character.toUpperCase(text.charAt(0)) + text.substring(1));
    label.setLabelFor(of);
    of.setName(label.getText());
    form.add(label);
  }

  private void addName(JPanel form, Attributes.Name which) {
    Hint.Field field = new Hint.Field(20);
    JLabel complaint = new JLabel();
    addLabel(form, which.words(), field);
    form.add(field);
    form.add(complaint, "skip");
    names.put(which, new TextCommit(field, complaint,
        text -> text.isEmpty() ? "A name is needed here."
            : HoldingBean.encodedLength(text) > NAME_LIMIT
                ? TextCommit.tooLong(text, NAME_LIMIT) : null,
        text -> workspace.edit(SettingsEdits.name(which, text))));
  }

  private void addNumber(JPanel form, SettingsEdits.Number which) {
    boolean oneByte = which == SettingsEdits.Number.DELIMITER;
    JSpinner spinner = new JSpinner(new SpinnerNumberModel(0,
        oneByte ? Byte.MIN_VALUE : Short.MIN_VALUE, oneByte ? Byte.MAX_VALUE : Short.MAX_VALUE,
        1));
    addLabel(form, which.words, spinner);
    form.add(spinner, "w 100!, growx 0");
    numbers.put(which, spinner);
    spinner.addChangeListener(event -> {
      if (!showing) {
        workspace.edit(SettingsEdits.number(which, ((Integer) spinner.getValue()).shortValue()));
      }
    });
  }

  /** What reads a name from the settings. */
  static Function<AttributeSettings, String> reader(Attributes.Name which) {
    switch (which) {
      case TRUE:
        return AttributeSettings::getTrueText;
      case FALSE:
        return AttributeSettings::getFalseText;
      case CALCULATIONS:
        return AttributeSettings::getCalculationDimension;
      case SUM:
        return AttributeSettings::getSum;
      case COUNT:
        return AttributeSettings::getCount;
      case AVERAGE:
        return AttributeSettings::getAverage;
      case MINIMUM:
        return AttributeSettings::getMinimum;
      default:
        return AttributeSettings::getMaximum;
    }
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

  private void show(OutlineSettings settings, AttributeSettings attributes) {
    showing = true;
    caseSensitive.setSelected(settings.isCaseSensitive());
    autoConfigure.setSelected(settings.isAutoConfigure());
    names.forEach((which, field) -> field.refresh(SettingsEdits.name(which, attributes)));
    numbers.forEach((which, spinner) ->
        spinner.setValue((int) which.read.apply(attributes)));
    showing = false;
  }

  /** Makes edits of what was typed, as before saving. */
  void flush() {
    names.values().forEach(TextCommit::flush);
  }
}
