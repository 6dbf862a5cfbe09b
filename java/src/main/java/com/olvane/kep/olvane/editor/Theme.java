package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.awt.Window;
import javax.swing.BorderFactory;
import javax.swing.SwingUtilities;
import javax.swing.UIDefaults;
import javax.swing.UIManager;
import javax.swing.UnsupportedLookAndFeelException;
import javax.swing.border.Border;
import javax.swing.plaf.BorderUIResource;
import javax.swing.plaf.ColorUIResource;
import javax.swing.plaf.DimensionUIResource;
import javax.swing.plaf.InsetsUIResource;
import javax.swing.plaf.metal.DefaultMetalTheme;
import javax.swing.plaf.metal.MetalLookAndFeel;

/** The editor's look: Metal, made flat, in the colours of a {@link Palette}. */
final class Theme {
  private static final String CONTENT = "Tree Table List TextField TextArea TextPane EditorPane "
      + "FormattedTextField Viewport ComboBox ";
  private static final String MENUS =
      "MenuItem CheckBoxMenuItem RadioButtonMenuItem PopupMenu Menu MenuBar ";
  private static final String SURFACE = "Panel OptionPane TabbedPane SplitPane ScrollPane Label "
      + "FileChooser ScrollBar Separator TableHeader ";
  private static final String RAISED = "Button ToggleButton ToolTip ProgressBar ";
  private static final String ALL = CONTENT + MENUS + SURFACE + RAISED;

  private static Palette palette = Palette.LIGHT;

  private Theme() {}

  /** Says how text is drawn; call it before the window toolkit starts. */
  static void prepare() {
    System.getProperties().putIfAbsent("awt.useSystemAAFontSettings", "on");
  }

  /** {@return the colours in use} */
  static Palette palette() {
    return palette;
  }

  /** Gives this look to all windows, open ones too. Called on the event thread. */
  static void install(Palette colours) {
    palette = colours;
    UIManager.put("swing.boldMetal", false);
    MetalLookAndFeel.setCurrentTheme(new DefaultMetalTheme());
    try {
      UIManager.setLookAndFeel(new MetalLookAndFeel());
    } catch (UnsupportedLookAndFeelException e) {
      throw new IllegalStateException("Every Java has this look and feel", e);
    }
    putControls();
    putColours();
    putBorders();
    putMeasures();
    for (Window window : Window.getWindows()) {
      SwingUtilities.updateComponentTreeUI(window);
    }
  }

  /** Makes text be drawn smoothly, which Swing does for its own. */
  static void smoothText(Graphics g) {
    ((Graphics2D) g).setRenderingHint(
        RenderingHints.KEY_TEXT_ANTIALIASING, RenderingHints.VALUE_TEXT_ANTIALIAS_ON);
  }

  /** {@return an empty border of so many pixels} */
  static Border space(int vertical, int horizontal) {
    return BorderFactory.createEmptyBorder(vertical, horizontal, vertical, horizontal);
  }

  /** Puts a value in the place of each key of each control, both lists of words. */
  private static void put(Object value, String controls, String keys) {
    UIDefaults defaults = UIManager.getLookAndFeelDefaults();
    Object own = value instanceof Color ? new ColorUIResource((Color) value)
        : value instanceof Border ? new BorderUIResource((Border) value) : value;
    for (String control : controls.trim().split(" ")) {
      for (String key : keys.split(" ")) {
        defaults.put(control + key, own);
      }
    }
  }

  private static void putControls() {
    put(Theme.class.getClassLoader(), "ClassLoader", "");
    for (String basic : new String[] {"SplitPane", "ProgressBar", "Tree", "MenuBar", "ToolTip",
      "ScrollPane", "Separator", "PopupMenuSeparator"}) {
      put("javax.swing.plaf.basic.Basic" + basic + "UI", basic, "UI");
    }
    put(Flat.Button.class.getName(), "ButtonUI", "");
    put(Flat.ComboBox.class.getName(), "ComboBoxUI", "");
    put(Flat.ScrollBar.class.getName(), "ScrollBarUI", "");
    put(Flat.Tabs.class.getName(), "TabbedPaneUI", "");
    put(Flat.LineIcon.arrow(palette.faint, false), "Tree", ".expandedIcon");
    put(Flat.LineIcon.arrow(palette.faint, true), "Tree.collapsedIcon Menu.arrowIcon", "");
    put(new Flat.Tick(palette.text), "CheckBoxMenuItem RadioButtonMenuItem", ".checkIcon");
    // A sentence needs no picture of a triangle.
    put(null, "OptionPane", ".errorIcon .warningIcon .informationIcon .questionIcon");
  }

  private static void putColours() {
    put(palette.text, ALL, ".foreground .caretForeground .selectionForeground .textForeground "
        + ".focusCellForeground .messageForeground");
    put(palette.faint, ALL, ".disabledForeground .disabledText .inactiveForeground "
        + ".acceleratorForeground .acceleratorSelectionForeground");
    put(palette.content, CONTENT + MENUS,
        ".background .inactiveBackground .disabledBackground .textBackground .focusCellBackground");
    put(palette.surface, SURFACE, ".background .track");
    put(palette.raised, RAISED, ".background");
    put(palette.selection, ALL, ".selectionBackground .select");
    put(palette.accent, "Tree Table List", ".selectionBorderColor .dropLineColor");
    put(palette.line, "Separator.foreground Table.gridColor", "");
    put(palette.faint, "TableHeader", ".foreground");
    put(palette.accent, "ProgressBar", ".foreground");
    put(palette.text, "ProgressBar", ".selectionBackground");
    put(palette.onAccent, "ProgressBar", ".selectionForeground");
    // A view that has not the focus keeps its selection, standing back.
    put(palette.hover, "Tree", ".selectionInactiveBackground");
  }

  private static void putBorders() {
    Border line = BorderFactory.createLineBorder(palette.line);
    put(new Flat.Border(5, 6), "TextField FormattedTextField", ".border");
    put(new Flat.Border(2, 1), "ComboBox", ".border");
    put(space(4, 12), "Button ToggleButton", ".border");
    put(space(16, 16), "OptionPane", ".border");
    put(BorderFactory.createEmptyBorder(12, 0, 0, 0), "OptionPane", ".buttonAreaBorder");
    put(space(0, 0), "SplitPane SplitPaneDivider TableHeader ProgressBar", ".border");
    put(line, "ScrollPane.border Table.scrollPaneBorder", "");
    put(BorderFactory.createCompoundBorder(line, space(4, 0)), "PopupMenu", ".border");
    put(BorderFactory.createCompoundBorder(line, space(3, 6)), "ToolTip", ".border");
    put(BorderFactory.createMatteBorder(0, 0, 1, 0, palette.line), "MenuBar", ".border");
    put(BorderFactory.createCompoundBorder(
        BorderFactory.createMatteBorder(0, 0, 1, 1, palette.line), space(4, 6)),
        "TableHeader", ".cellBorder");
    put(space(1, 5), "Table", ".cellNoFocusBorder .focusCellHighlightBorder");
    put(space(4, 4), MENUS.replace("PopupMenu ", "").replace("MenuBar ", ""), ".border");
  }

  private static void putMeasures() {
    put(false, MENUS + RAISED, ".borderPainted");
    put("+", "MenuItem", ".acceleratorDelimiter");
    put(new InsetsUIResource(1, 0, 0, 0), "TabbedPane", ".contentBorderInsets");
    put(new InsetsUIResource(6, 12, 6, 12), "TabbedPane", ".tabInsets");
    put(new InsetsUIResource(0, 4, 0, 0), "TabbedPane", ".tabAreaInsets");
    put(new InsetsUIResource(0, 0, 0, 0), "TabbedPane", ".selectedTabPadInsets");
    put(0, "TabbedPane", ".labelShift .selectedLabelShift");
    put(palette.selection, "TabbedPane", ".focus");
    put(true, "Button", ".defaultButtonFollowsFocus");
    put(5, "SplitPane", ".dividerSize");
    put(13, "ScrollBar", ".width");
    put(new DimensionUIResource(24, 24), "ScrollBar", ".minimumThumbSize");
    put(false, "Tree", ".paintLines .drawsFocusBorderAroundIcon");
    put(22, "Tree", ".rowHeight");
    put(8, "Tree", ".leftChildIndent");
    put(12, "Tree", ".rightChildIndent");
    // The arrow keys go through a list; Enter or a click chooses.
    put(true, "ComboBox", ".noActionOnKeyNavigation");
  }
}
