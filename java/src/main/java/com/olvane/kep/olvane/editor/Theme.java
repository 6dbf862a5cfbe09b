package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Dimension;
import java.awt.Font;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Insets;
import java.awt.RenderingHints;
import java.awt.Toolkit;
import java.awt.Window;
import java.util.Map;
import javax.swing.BorderFactory;
import javax.swing.JLabel;
import javax.swing.JTable;
import javax.swing.SwingConstants;
import javax.swing.SwingUtilities;
import javax.swing.UIDefaults;
import javax.swing.UIManager;
import javax.swing.UnsupportedLookAndFeelException;
import javax.swing.border.Border;
import javax.swing.plaf.BorderUIResource;
import javax.swing.plaf.ColorUIResource;
import javax.swing.plaf.FontUIResource;
import javax.swing.plaf.InsetsUIResource;
import javax.swing.plaf.metal.DefaultMetalTheme;
import javax.swing.plaf.metal.MetalLookAndFeel;
import javax.swing.table.TableCellRenderer;

/** The editor's look: Metal, made flat, in the colours of a {@link Palette}. */
final class Theme {
  private static final int TEXT_SIZE = 12;

  private static Palette palette = Palette.LIGHT;

  private Theme() {}

  /** Says how text is drawn; call it before the window toolkit starts. */
  static void prepare() {
    for (String property : new String[] {"awt.useSystemAAFontSettings", "swing.aatext"}) {
      if (System.getProperty(property) == null) {
        System.setProperty(property, "swing.aatext".equals(property) ? "true" : "on");
      }
    }
  }

  /** {@return the colours in use} */
  static Palette palette() {
    return palette;
  }

  /** Gives this look to all windows, open ones too. Called on the event thread. */
  static void install(Palette colours) {
    palette = colours;
    MetalLookAndFeel.setCurrentTheme(new Colours());
    try {
      UIManager.setLookAndFeel(new MetalLookAndFeel());
    } catch (UnsupportedLookAndFeelException e) {
      throw new IllegalStateException("Every Java has this look and feel", e);
    }
    UIDefaults defaults = UIManager.getLookAndFeelDefaults();
    putControls(defaults);
    putColours(defaults);
    putBorders(defaults);
    FlatIcons.putAll(defaults, colours);
    for (Window window : Window.getWindows()) {
      SwingUtilities.updateComponentTreeUI(window);
    }
  }

  /** {@return the font of formulas and other code} */
  static Font codeFont() {
    return new Font(Font.MONOSPACED, Font.PLAIN, TEXT_SIZE + 1);
  }

  /** Makes text be drawn as the desktop has it, which Swing does for its own. */
  static void smoothText(Graphics g) {
    Object hints = Toolkit.getDefaultToolkit().getDesktopProperty("awt.font.desktophints");
    if (hints instanceof Map) {
      ((Graphics2D) g).addRenderingHints((Map<?, ?>) hints);
    } else {
      ((Graphics2D) g).setRenderingHint(
          RenderingHints.KEY_TEXT_ANTIALIASING, RenderingHints.VALUE_TEXT_ANTIALIAS_ON);
    }
  }

  /** {@return an empty border of so many pixels} */
  static Border space(int vertical, int horizontal) {
    return BorderFactory.createEmptyBorder(vertical, horizontal, vertical, horizontal);
  }

  /** Gives a table rows with room, headings at the start and no lines between columns. */
  static void style(JTable table) {
    table.setRowHeight(24);
    table.setShowVerticalLines(false);
    table.setIntercellSpacing(new Dimension(0, 1));
    table.setFillsViewportHeight(true);
    table.putClientProperty("terminateEditOnFocusLost", true);
    TableCellRenderer headings = table.getTableHeader().getDefaultRenderer();
    if (headings instanceof JLabel) {
      ((JLabel) headings).setHorizontalAlignment(SwingConstants.LEADING);
    }
    table.getTableHeader().setReorderingAllowed(false);
  }

  private static void putControls(UIDefaults defaults) {
    defaults.put("ClassLoader", Theme.class.getClassLoader());
    String own = "com.olvane.kep.olvane.editor.Flat";
    for (String one : new String[] {"CheckBox", "SplitPane", "ProgressBar", "Tree",
      "MenuBar", "ToolTip", "ScrollPane", "Separator", "PopupMenuSeparator"}) {
      defaults.put(one + "UI", "javax.swing.plaf.basic.Basic" + one + "UI");
    }
    defaults.put("ButtonUI", own + "Button");
    defaults.put("ComboBoxUI", own + "Controls$ComboBox");
    defaults.put("ScrollBarUI", own + "Controls$ScrollBar");
    defaults.put("TabbedPaneUI", own + "Controls$Tabs");
  }

  /** Gives several controls the same colours: background, text, text that cannot be used. */
  private static void putColours(
      UIDefaults defaults, String controls, Color background, Color text, Color faint) {
    for (String one : controls.split(" ")) {
      put(defaults, background, one + ".background", one + ".inactiveBackground");
      put(defaults, text, one + ".foreground", one + ".caretForeground");
      put(defaults, faint, one + ".disabledForeground", one + ".disabledText",
          one + ".inactiveForeground");
      put(defaults, palette.selection, one + ".selectionBackground");
      put(defaults, text, one + ".selectionForeground");
      defaults.put(one + ".gradient", null);
      defaults.put(one + ".borderPainted", false);
    }
  }

  private static void putColours(UIDefaults defaults) {
    putColours(defaults, "Tree Table List TextField TextArea TextPane EditorPane PasswordField "
        + "FormattedTextField Viewport ComboBox MenuItem CheckBoxMenuItem RadioButtonMenuItem "
        + "PopupMenu Menu MenuBar", palette.content, palette.text, palette.faint);
    putColours(defaults, "Panel OptionPane TabbedPane SplitPane ScrollPane "
        + "CheckBox Label FileChooser ScrollBar", palette.surface, palette.text,
        palette.faint);
    putColours(defaults, "Button ToggleButton ToolTip", palette.raised, palette.text,
        palette.faint);
    putColours(defaults, "TableHeader", palette.surface, palette.faint, palette.faint);
    putColours(defaults, "ProgressBar", palette.raised, palette.accent, palette.faint);
    put(defaults, palette.line, "Separator.foreground", "Table.gridColor");
    put(defaults, palette.surface, "Separator.background", "ScrollBar.track");
    put(defaults, palette.onAccent, "ProgressBar.selectionForeground");
    put(defaults, palette.text, "ProgressBar.selectionBackground", "OptionPane.messageForeground",
        "Table.focusCellForeground", "Tree.textForeground");
    put(defaults, palette.content, "Tree.textBackground", "Table.focusCellBackground");
    put(defaults, palette.accent, "Tree.selectionBorderColor", "Tree.dropLineColor",
        "Table.dropLineColor", "List.dropLineColor");
    put(defaults, palette.faint, "MenuItem.acceleratorForeground",
        "MenuItem.acceleratorSelectionForeground", "TitledBorder.titleColor");
    put(defaults, palette.selection, "ToggleButton.select");
    // A view that has not the focus keeps its selection, standing back.
    put(defaults, palette.hover, "Tree.selectionInactiveBackground");
  }

  private static void putBorders(UIDefaults defaults) {
    Border line = BorderFactory.createLineBorder(palette.line);
    put(defaults, new FlatBorder(new Insets(5, 6, 5, 6)), "TextField.border", "ComboBox.border",
        "FormattedTextField.border", "PasswordField.border");
    put(defaults, space(4, 12), "Button.border", "ToggleButton.border");
    put(defaults, space(0, 0), "SplitPane.border", "SplitPaneDivider.border",
        "TableHeader.border", "ProgressBar.border");
    put(defaults, line, "ScrollPane.border", "Table.scrollPaneBorder");
    put(defaults, BorderFactory.createCompoundBorder(line, space(4, 0)), "PopupMenu.border");
    put(defaults, BorderFactory.createCompoundBorder(line, space(3, 6)), "ToolTip.border");
    put(defaults, BorderFactory.createMatteBorder(0, 0, 1, 0, palette.line), "MenuBar.border");
    put(defaults, BorderFactory.createCompoundBorder(
        BorderFactory.createMatteBorder(0, 0, 1, 1, palette.line), space(4, 6)),
        "TableHeader.cellBorder");
    put(defaults, BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(palette.accent), space(0, 4)),
        "Table.focusCellHighlightBorder");
    put(defaults, space(1, 5), "Table.cellNoFocusBorder");
    put(defaults, space(4, 4), "Menu.border", "MenuItem.border", "CheckBoxMenuItem.border",
        "RadioButtonMenuItem.border");
    // The arrow keys go through a list; Enter or a click chooses.
    defaults.put("ComboBox.noActionOnKeyNavigation", true);
    defaults.put("CheckBox.margin", new InsetsUIResource(3, 0, 3, 2));
    defaults.put("TabbedPane.contentBorderInsets", new InsetsUIResource(1, 0, 0, 0));
    defaults.put("TabbedPane.tabInsets", new InsetsUIResource(6, 12, 6, 12));
    defaults.put("TabbedPane.tabAreaInsets", new InsetsUIResource(0, 4, 0, 0));
    defaults.put("TabbedPane.selectedTabPadInsets", new InsetsUIResource(0, 0, 0, 0));
    defaults.put("TabbedPane.tabsOverlapBorder", false);
    defaults.put("SplitPane.dividerSize", 5);
    defaults.put("ScrollBar.width", 13);
    defaults.put("Tree.paintLines", false);
    defaults.put("Tree.drawsFocusBorderAroundIcon", false);
    defaults.put("Tree.rowHeight", 22);
    defaults.put("Tree.leftChildIndent", 8);
    defaults.put("Tree.rightChildIndent", 12);
  }

  private static void put(UIDefaults defaults, Border border, String... keys) {
    for (String key : keys) {
      defaults.put(key, new BorderUIResource(border));
    }
  }

  private static void put(UIDefaults defaults, Color colour, String... keys) {
    for (String key : keys) {
      defaults.put(key, new ColorUIResource(colour));
    }
  }

  /** The few colours and fonts that Metal derives the rest from. */
  private static final class Colours extends DefaultMetalTheme {
    private static final FontUIResource TEXT =
        new FontUIResource(Font.DIALOG, Font.PLAIN, TEXT_SIZE);

    @Override
    protected ColorUIResource getSecondary3() {
      return new ColorUIResource(palette.surface);
    }

    @Override
    protected ColorUIResource getBlack() {
      return new ColorUIResource(palette.text);
    }

    @Override
    protected ColorUIResource getWhite() {
      return new ColorUIResource(palette.content);
    }

    @Override
    public FontUIResource getControlTextFont() {
      return TEXT;
    }

    @Override
    public FontUIResource getMenuTextFont() {
      return TEXT;
    }
  }
}
