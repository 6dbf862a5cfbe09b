package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.awt.Color;
import java.awt.Dimension;
import java.util.Collections;
import java.util.List;
import javax.swing.BorderFactory;
import javax.swing.JLabel;
import javax.swing.JPanel;
import net.miginfocom.swing.MigLayout;
import org.fife.ui.rsyntaxtextarea.AbstractTokenMakerFactory;
import org.fife.ui.rsyntaxtextarea.RSyntaxTextArea;
import org.fife.ui.rsyntaxtextarea.SyntaxScheme;
import org.fife.ui.rsyntaxtextarea.Token;
import org.fife.ui.rsyntaxtextarea.TokenMakerFactory;
import org.fife.ui.rtextarea.RTextScrollPane;

/** The formula of members, coloured, with names completed by Ctrl+Space. */
final class FormulaPane extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;
  private static final String SYNTAX = "text/formula";

  static {
    ((AbstractTokenMakerFactory) TokenMakerFactory.getDefaultInstance())
        .putMapping(SYNTAX, FormulaTokens.class.getName());
  }

  private final RSyntaxTextArea text = new RSyntaxTextArea(5, 10);
  private final RTextScrollPane scroll = new RTextScrollPane(text, false);
  private final JLabel heading = DetailsPane.heading("Formula", text);
  private final transient TextCommit commit;
  private transient List<Member> members = Collections.emptyList();

  FormulaPane(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    JLabel complaint = new JLabel();
    text.setName("Formula");
    text.getAccessibleContext().setAccessibleName("Formula");
    text.setSyntaxEditingStyle(SYNTAX);
    text.setLineWrap(true);
    text.setAntiAliasingEnabled(true);
    text.setTabsEmulated(true);
    text.setTabSize(2);
    text.setHighlightCurrentLine(false);
    text.setPopupMenu(null);
    MemberCompletion.install(text, workspace);
    scroll.setPreferredSize(new Dimension(100, 92));
    scroll.setMinimumSize(new Dimension(0, 60));
    JLabel hint = new JLabel("Ctrl+Space completes a name, Ctrl+Enter applies");
    hint.setEnabled(false);
    add(heading, "split 2, growx 0");
    add(hint, "growx 0, gapleft push, wmin 0");
    add(scroll);
    add(complaint);
    commit = new TextCommit(text, complaint,
        TextCommit.accordingTo(formula -> new Changes().formula(formula)),
        formula -> workspace.edit(MemberEdits.change(
            MemberEdits.title("Set the formula of", members), members,
            member -> new Changes().formula(formula))));
  }

  @Override
  public void updateUI() {
    super.updateUI();
    if (text != null) {
      colour();
    }
  }

  @Override
  public void addNotify() {
    super.addNotify();
    colour();
  }

  private void colour() {
    Palette palette = Theme.palette();
    text.setBackground(palette.content);
    text.setForeground(palette.text);
    text.setCaretColor(palette.text);
    text.setSelectionColor(palette.selection);
    text.setFont(Theme.codeFont());
    text.setMatchedBracketBGColor(palette.hover);
    text.setMatchedBracketBorderColor(palette.border);
    SyntaxScheme scheme = text.getSyntaxScheme();
    for (int type = 0; type < Token.DEFAULT_NUM_TOKEN_TYPES; type++) {
      if (scheme.getStyle(type) != null) {
        scheme.getStyle(type).foreground = colour(type, palette);
        scheme.getStyle(type).font = null;
        scheme.getStyle(type).background = null;
      }
    }
    text.setSyntaxScheme(scheme);
    scroll.setBorder(BorderFactory.createLineBorder(palette.border));
    scroll.getViewport().setBackground(palette.content);
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

  @Override
  public void show(List<Member> now, boolean again) {
    members = now;
    String formula = DetailsPane.common(now, Member::formula);
    heading.setText(formula == null ? "Formula " + Hint.DIFFERENT : "Formula");
    DetailsPane.show(commit, text, formula, again);
    if (!again) {
      text.discardAllEdits();
    }
  }

  @Override
  public void flush() {
    commit.flush();
  }
}
