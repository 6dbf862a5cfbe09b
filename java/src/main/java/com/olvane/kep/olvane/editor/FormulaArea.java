package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Font;
import java.awt.Insets;
import java.util.stream.IntStream;
import java.awt.KeyboardFocusManager;
import javax.swing.KeyStroke;
import org.fife.ui.rsyntaxtextarea.AbstractTokenMakerFactory;
import org.fife.ui.rsyntaxtextarea.RSyntaxTextArea;
import org.fife.ui.rsyntaxtextarea.Style;
import org.fife.ui.rsyntaxtextarea.Token;
import org.fife.ui.rsyntaxtextarea.TokenMakerFactory;

/** A formula, coloured, with names completed by Ctrl+Space. */
final class FormulaArea extends RSyntaxTextArea {
  private static final String SYNTAX = "text/formula";

  static {
    ((AbstractTokenMakerFactory) TokenMakerFactory.getDefaultInstance())
        .putMapping(SYNTAX, FormulaTokens.class.getName());
  }

  FormulaArea(Workspace workspace) {
    super(5, 10);
    setSyntaxEditingStyle(SYNTAX);
    setLineWrap(true);
    // Tab leaves the formula as it leaves a field.
    getInputMap().put(KeyStroke.getKeyStroke("TAB"), "none");
    getInputMap().put(KeyStroke.getKeyStroke("shift TAB"), "none");
    setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    setFocusTraversalKeys(KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
    setHighlightCurrentLine(false);
    setPopupMenu(null);
    setMargin(new Insets(4, 6, 4, 6));
    setToolTipText("Ctrl+Space completes a name, Ctrl+Enter applies the formula");
    new MemberCompletion(this, workspace);
    updateUI();
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
    setFont(new Font(Font.MONOSPACED, Font.PLAIN, 13));
    if (getSyntaxScheme() == null) {
      return;
    }
    for (int type = 0; type < Token.DEFAULT_NUM_TOKEN_TYPES; type++) {
      colour(palette.text, type);
    }
    colour(palette.accent, Token.FUNCTION, Token.RESERVED_WORD);
    colour(palette.good, Token.LITERAL_STRING_DOUBLE_QUOTE);
    colour(palette.warning, Token.LITERAL_NUMBER_DECIMAL_INT);
    colour(palette.faint, Token.COMMENT_MULTILINE);
  }

  private void colour(Color colour, int... types) {
    IntStream.of(types).forEach(type -> getSyntaxScheme().setStyle(type, new Style(colour)));
  }
}
