package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.awt.Color;
import java.awt.Dimension;
import java.awt.Insets;
import org.fife.ui.rsyntaxtextarea.AbstractTokenMakerFactory;
import org.fife.ui.rsyntaxtextarea.RSyntaxTextArea;
import org.fife.ui.rsyntaxtextarea.Style;
import org.fife.ui.rsyntaxtextarea.Token;
import org.fife.ui.rsyntaxtextarea.TokenMakerFactory;
import org.fife.ui.rtextarea.RTextScrollPane;

/** A formula, coloured, with names completed by Ctrl+Space. */
final class FormulaArea extends RSyntaxTextArea {
  private static final long serialVersionUID = 1;
  private static final String SYNTAX = "text/formula";

  static {
    ((AbstractTokenMakerFactory) TokenMakerFactory.getDefaultInstance())
        .putMapping(SYNTAX, FormulaTokens.class.getName());
  }

  private FormulaArea() {
    super(5, 10);
    setSyntaxEditingStyle(SYNTAX);
    setLineWrap(true);
    setTabsEmulated(true);
    setHighlightCurrentLine(false);
    setPopupMenu(null);
    setMargin(new Insets(4, 6, 4, 6));
    setToolTipText("Ctrl+Space completes a name, Ctrl+Enter applies the formula");
    getAccessibleContext().setAccessibleName("Formula");
  }

  /** The formula of the selected members. */
  static TextPart part(Workspace workspace) {
    FormulaArea area = new FormulaArea();
    MemberCompletion.install(area, workspace);
    RTextScrollPane scroll = new RTextScrollPane(area, false);
    scroll.setPreferredSize(new Dimension(100, 100));
    return new TextPart(workspace, "Formula", area, scroll,
        members -> MemberRows.common(members, Member::formula),
        text -> member -> new Changes().formula(text));
  }

  @Override
  public void updateUI() {
    super.updateUI();
    Palette palette = Theme.palette();
    setBackground(palette.content);
    setForeground(palette.text);
    setCaretColor(palette.text);
    setSelectionColor(palette.selection);
    setMatchedBracketBGColor(palette.hover);
    setMatchedBracketBorderColor(palette.border);
    setFont(Theme.codeFont());
    if (getSyntaxScheme() == null) {
      return;
    }
    for (int type = 0; type < Token.DEFAULT_NUM_TOKEN_TYPES; type++) {
      getSyntaxScheme().setStyle(type, new Style(colour(type, palette)));
    }
  }

  @Override
  public void addNotify() {
    super.addNotify();
    updateUI();
  }

  private static Color colour(int type, Palette palette) {
    switch (type) {
      case Token.FUNCTION:
      case Token.RESERVED_WORD:
        return palette.accent;
      case Token.LITERAL_STRING_DOUBLE_QUOTE:
        return palette.good;
      case Token.LITERAL_NUMBER_DECIMAL_INT:
        return palette.warning;
      case Token.COMMENT_MULTILINE:
        return palette.faint;
      default:
        return palette.text;
    }
  }
}
