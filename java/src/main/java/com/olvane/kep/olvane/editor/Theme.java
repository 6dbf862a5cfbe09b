package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Font;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Insets;
import java.awt.RenderingHints;
import java.awt.Toolkit;
import java.awt.Window;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import javax.swing.BorderFactory;
import javax.swing.JComponent;
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

  private static final List<Runnable> listeners = new ArrayList<>();
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

  /** Adds somebody who has more to do than to be repainted when the colours change. */
  static void onChange(Runnable listener) {
    listeners.add(listener);
  }

  /** Takes a listener off the list. */
  static void forget(Runnable listener) {
    listeners.remove(listener);
  }

  /** Gives this look to all windows, open ones too. Called on the event thread. */
  static void install(Palette colours) {
    palette = colours;
    MetalLookAndFeel.setCurrentTheme(new Colours(colours));
    try {
      UIManager.setLookAndFeel(new MetalLookAndFeel());
    } catch (UnsupportedLookAndFeelException e) {
      throw new IllegalStateException("Every Java has this look and feel", e);
    }
    UIDefaults defaults = UIManager.getLookAndFeelDefaults();
    putFlatControls(defaults);
    putColours(defaults, colours);
    putBorders(defaults, colours);
    FlatIcons.putAll(defaults, colours);
    for (Window window : Window.getWindows()) {
      SwingUtilities.updateComponentTreeUI(window);
    }
    for (Runnable listener : new ArrayList<>(listeners)) {
      listener.run();
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
    table.setFillsViewportHeight(true);
    table.putClientProperty("terminateEditOnFocusLost", true);
    TableCellRenderer headings = table.getTableHeader().getDefaultRenderer();
    if (headings instanceof JLabel) {
      ((JLabel) headings).setHorizontalAlignment(SwingConstants.LEADING);
    }
    table.getTableHeader().setReorderingAllowed(false);
  }

  /** Marks a button that is not drawn until the mouse is over it. */
  static void makeQuiet(JComponent button) {
    button.putClientProperty(FlatButtons.QUIET, true);
  }

  private static void putFlatControls(UIDefaults defaults) {
    defaults.put("ClassLoader", Theme.class.getClassLoader());
    String own = "com.olvane.kep.olvane.editor.";
    String basic = "javax.swing.plaf.basic.Basic";
    String[] uis = {
      "ButtonUI", own + "FlatButtons$Plain", "ToggleButtonUI", own + "FlatButtons$Toggle",
      "CheckBoxUI", basic + "CheckBoxUI", "RadioButtonUI", basic + "RadioButtonUI",
      "ComboBoxUI", own + "FlatControls$ComboBox", "ScrollBarUI", own + "FlatControls$ScrollBar",
      "TabbedPaneUI", own + "FlatControls$Tabs", "ToolBarUI", own + "FlatControls$ToolBar",
      "SpinnerUI", own + "FlatControls$Spinner", "SplitPaneUI", own + "FlatControls$SplitPane",
      "ProgressBarUI", basic + "ProgressBarUI", "TreeUI", basic + "TreeUI",
      "MenuBarUI", basic + "MenuBarUI", "ToolTipUI", basic + "ToolTipUI",
      "ScrollPaneUI", basic + "ScrollPaneUI", "SeparatorUI", own + "FlatControls$Line",
      "PopupMenuSeparatorUI", own + "FlatControls$Line",
      "ToolBarSeparatorUI", own + "FlatControls$Line"
    };
    defaults.putDefaults(uis);
  }

  private static void putColours(UIDefaults defaults, Palette colours) {
    String[] content = {"Tree", "Table", "List", "TextField", "TextArea", "TextPane", "EditorPane",
      "FormattedTextField", "PasswordField", "Viewport", "ComboBox", "Spinner"};
    for (String one : content) {
      put(defaults, one + ".background", colours.content);
      put(defaults, one + ".foreground", colours.text);
      put(defaults, one + ".selectionBackground", colours.selection);
      put(defaults, one + ".selectionForeground", colours.text);
      put(defaults, one + ".inactiveForeground", colours.faint);
      put(defaults, one + ".inactiveBackground", colours.surface);
      put(defaults, one + ".disabledBackground", colours.surface);
      put(defaults, one + ".disabledForeground", colours.faint);
      put(defaults, one + ".caretForeground", colours.text);
    }
    String[] surface = {"Panel", "OptionPane", "TabbedPane", "SplitPane", "ScrollPane", "MenuBar",
      "ToolBar", "CheckBox", "RadioButton", "Label", "FileChooser", "Separator"};
    for (String one : surface) {
      put(defaults, one + ".background", colours.surface);
      put(defaults, one + ".foreground", colours.text);
      put(defaults, one + ".disabledText", colours.faint);
    }
    put(defaults, "OptionPane.messageForeground", colours.text);
    put(defaults, "Label.disabledForeground", colours.faint);
    for (String one : new String[] {"Menu", "MenuItem", "CheckBoxMenuItem", "RadioButtonMenuItem",
      "PopupMenu"}) {
      put(defaults, one + ".background", colours.content);
      put(defaults, one + ".foreground", colours.text);
      put(defaults, one + ".selectionBackground", colours.selection);
      put(defaults, one + ".selectionForeground", colours.text);
      put(defaults, one + ".disabledForeground", colours.faint);
      put(defaults, one + ".acceleratorForeground", colours.faint);
      put(defaults, one + ".acceleratorSelectionForeground", colours.faint);
      defaults.put(one + ".borderPainted", false);
    }
    put(defaults, "Menu.background", colours.surface);
    put(defaults, "Tree.textBackground", colours.content);
    put(defaults, "Tree.textForeground", colours.text);
    put(defaults, "Tree.selectionBorderColor", colours.accent);
    put(defaults, "Tree.dropLineColor", colours.accent);
    put(defaults, "Table.gridColor", colours.line);
    put(defaults, "Table.focusCellBackground", colours.content);
    put(defaults, "Table.focusCellForeground", colours.text);
    put(defaults, "Table.dropLineColor", colours.accent);
    put(defaults, "TableHeader.background", colours.surface);
    put(defaults, "TableHeader.foreground", colours.faint);
    put(defaults, "List.dropLineColor", colours.accent);
    put(defaults, "ProgressBar.background", colours.raised);
    put(defaults, "ProgressBar.foreground", colours.accent);
    put(defaults, "ProgressBar.selectionForeground", colours.onAccent);
    put(defaults, "ProgressBar.selectionBackground", colours.text);
    put(defaults, "ToolTip.background", colours.raised);
    put(defaults, "ToolTip.foreground", colours.text);
    put(defaults, "ScrollBar.background", colours.surface);
    put(defaults, "ScrollBar.track", colours.surface);
    put(defaults, "Button.background", colours.raised);
    put(defaults, "ToggleButton.background", colours.raised);
    put(defaults, "Button.disabledText", colours.faint);
    put(defaults, "ToggleButton.disabledText", colours.faint);
    put(defaults, "TitledBorder.titleColor", colours.faint);
    for (String one : new String[] {"Button", "ToggleButton", "CheckBox", "RadioButton",
      "MenuBar", "ScrollBar", "Slider", "RadioButtonMenuItem", "CheckBoxMenuItem"}) {
      defaults.put(one + ".gradient", null);
    }
    // A view that has not the focus keeps its selection, standing back.
    put(defaults, "Tree.selectionInactiveBackground", colours.hover);
  }

  private static void putBorders(UIDefaults defaults, Palette colours) {
    Border field = new BorderUIResource(new FlatBorder(new Insets(5, 6, 5, 6)));
    for (String one : new String[] {"TextField", "FormattedTextField", "PasswordField", "Spinner",
      "ComboBox"}) {
      defaults.put(one + ".border", field);
    }
    defaults.put("Spinner.editorBorderPainted", false);
    Border button = new BorderUIResource(new FlatBorder(new Insets(4, 12, 4, 12)));
    defaults.put("Button.border", button);
    defaults.put("ToggleButton.border", button);
    Border none = new BorderUIResource.EmptyBorderUIResource(0, 0, 0, 0);
    for (String one : new String[] {"SplitPane.border", "SplitPaneDivider.border",
      "ToolBar.border", "TableHeader.border", "ProgressBar.border"}) {
      defaults.put(one, none);
    }
    Border line = new BorderUIResource.LineBorderUIResource(colours.line);
    defaults.put("ScrollPane.border", line);
    defaults.put("Table.scrollPaneBorder", line);
    defaults.put("PopupMenu.border", new BorderUIResource(BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(colours.line), space(4, 0))));
    defaults.put("ToolTip.border", new BorderUIResource(BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(colours.border), space(3, 6))));
    defaults.put("MenuBar.border", new BorderUIResource(
        BorderFactory.createMatteBorder(0, 0, 1, 0, colours.line)));
    defaults.put("TableHeader.cellBorder", new BorderUIResource(
        BorderFactory.createCompoundBorder(
            BorderFactory.createMatteBorder(0, 0, 1, 1, colours.line), space(4, 6))));
    defaults.put("Table.focusCellHighlightBorder", new BorderUIResource(
        BorderFactory.createCompoundBorder(
            BorderFactory.createLineBorder(colours.accent), space(0, 4))));
    defaults.put("Table.cellNoFocusBorder", new BorderUIResource(space(1, 5)));
    Border item = new BorderUIResource(space(4, 4));
    for (String one : new String[] {"Menu", "MenuItem", "CheckBoxMenuItem",
      "RadioButtonMenuItem"}) {
      defaults.put(one + ".border", item);
    }
    defaults.put("CheckBox.margin", new InsetsUIResource(3, 0, 3, 2));
    defaults.put("RadioButton.margin", new InsetsUIResource(3, 0, 3, 2));
    defaults.put("SplitPane.dividerSize", 5);
    defaults.put("ScrollBar.width", 13);
    defaults.put("Tree.paintLines", false);
    defaults.put("Tree.drawsFocusBorderAroundIcon", false);
    defaults.put("Tree.rowHeight", 22);
    defaults.put("Tree.leftChildIndent", 8);
    defaults.put("Tree.rightChildIndent", 12);
    defaults.put("TabbedPane.contentBorderInsets", new InsetsUIResource(1, 0, 0, 0));
    defaults.put("TabbedPane.tabInsets", new InsetsUIResource(6, 12, 6, 12));
    defaults.put("TabbedPane.tabAreaInsets", new InsetsUIResource(0, 4, 0, 0));
    defaults.put("TabbedPane.selectedTabPadInsets", new InsetsUIResource(0, 0, 0, 0));
    defaults.put("TabbedPane.tabsOverlapBorder", false);
  }

  private static void put(UIDefaults defaults, String key, Color colour) {
    defaults.put(key, new ColorUIResource(colour));
  }

  /** The few colours and fonts that Metal derives the rest from. */
  private static final class Colours extends DefaultMetalTheme {
    private final Palette palette;

    Colours(Palette palette) {
      this.palette = palette;
    }

    @Override
    public String getName() {
      return palette == Palette.DARK ? "Dark" : "Light";
    }

    @Override
    protected ColorUIResource getPrimary1() {
      return new ColorUIResource(palette.accent);
    }

    @Override
    protected ColorUIResource getPrimary2() {
      return new ColorUIResource(palette.selection);
    }

    @Override
    protected ColorUIResource getPrimary3() {
      return new ColorUIResource(palette.selection);
    }

    @Override
    protected ColorUIResource getSecondary1() {
      return new ColorUIResource(palette.border);
    }

    @Override
    protected ColorUIResource getSecondary2() {
      return new ColorUIResource(palette.line);
    }

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

    private static FontUIResource font(int style, int size) {
      return new FontUIResource(Font.DIALOG, style, size);
    }

    @Override
    public FontUIResource getControlTextFont() {
      return font(Font.PLAIN, TEXT_SIZE);
    }

    @Override
    public FontUIResource getSystemTextFont() {
      return font(Font.PLAIN, TEXT_SIZE);
    }

    @Override
    public FontUIResource getUserTextFont() {
      return font(Font.PLAIN, TEXT_SIZE);
    }

    @Override
    public FontUIResource getMenuTextFont() {
      return font(Font.PLAIN, TEXT_SIZE);
    }

    @Override
    public FontUIResource getWindowTitleFont() {
      return font(Font.BOLD, TEXT_SIZE);
    }

    @Override
    public FontUIResource getSubTextFont() {
      return font(Font.PLAIN, TEXT_SIZE - 1);
    }
  }
}
