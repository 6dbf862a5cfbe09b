package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.KeyboardFocusManager;
import java.util.Arrays;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import java.util.function.Supplier;
import javax.swing.JTextArea;
import javax.swing.JTextField;
import javax.swing.text.JTextComponent;

/** A value with its label, to be read and changed. */
final class Row {
  /** Stands where several members have different values. */
  static final String DIFFERENT = "(different)";

  /** Where it stands in a pane, and below which heading. */
  RowsPane.Place place;
  String heading = "";
  final String label;
  /** The value; null where several members have different ones. */
  final String value;
  /** What can be chosen; null for a value that is typed. */
  final List<String> choices;
  /** Gives the reason why a text is refused, or null. */
  final Function<String, String> refusal;
  /** Takes a value that was changed and fits. */
  final Consumer<String> set;
  /** Makes the field for a value that is typed. */
  Supplier<JTextComponent> field = JTextField::new;
  /** Whether the value stands back, as nobody gave it. */
  boolean faint;

  private Row(String label, String value, List<String> choices, Function<String, String> refusal,
      Consumer<String> set) {
    this.label = label;
    this.value = value;
    this.choices = choices;
    this.refusal = refusal;
    this.set = set;
  }

  /** A value that is typed. */
  static Row typed(
      String label, String value, Function<String, String> refusal, Consumer<String> set) {
    return new Row(label, value, null, refusal, set);
  }

  /** A value that is chosen. */
  static Row chosen(String label, String value, List<String> choices, Consumer<String> set) {
    return new Row(label, value == null ? DIFFERENT : value, choices,
        text -> choices.contains(text) ? null : text, set);
  }

  /** A value that is yes or no, or null for different ones. */
  static Row yesNo(String label, Boolean value, Consumer<Boolean> set) {
    return chosen(label, value == null ? null : value ? "yes" : "no", Arrays.asList("yes", "no"),
        text -> set.accept(text.equals("yes")));
  }

  /** The same typed into a field of its own kind. */
  Row in(Supplier<JTextComponent> kind) {
    field = kind;
    return this;
  }

  /** The same with a value that stands back. */
  Row standingBack(boolean back) {
    faint = back;
    return this;
  }

  /** A field for a text of several lines. */
  static JTextComponent area(int lines) {
    JTextArea area = new JTextArea(lines, 10);
    area.setLineWrap(true);
    area.setWrapStyleWord(true);
    area.setBorder(Theme.space(4, 6));
    // Tab leaves the text as it leaves a field.
    area.setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    area.setFocusTraversalKeys(KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
    return area;
  }

  /** What tells its field from others: also the name of the field. */
  String name() {
    return (heading + " " + label).trim();
  }

  // ---- Refusals ----

  /** Asks the facade whether a text fits. */
  static Function<String, String> accordingTo(Consumer<String> attempt) {
    return text -> {
      try {
        attempt.accept(text);
        return null;
      } catch (OutlineException e) {
        return e.limit() == 0 ? e.getMessage() : tooLong(text, e.limit());
      }
    };
  }

  /** Refuses what takes more bytes in an outline. */
  static Function<String, String> atMost(int limit) {
    return text -> HoldingBean.encodedLength(text) > limit ? tooLong(text, limit) : null;
  }

  /** Refuses what is no number, or one of more than a limit. */
  static Function<String, String> number(int limit) {
    return text -> text.matches("-?\\d{1,5}") && Math.abs(Integer.parseInt(text)) <= limit ? null
        : "A number from " + -limit + " to " + limit + " is needed here.";
  }

  private static String tooLong(String text, int limit) {
    return "At most " + limit + " bytes fit; these are " + HoldingBean.encodedLength(text) + ".";
  }
}
