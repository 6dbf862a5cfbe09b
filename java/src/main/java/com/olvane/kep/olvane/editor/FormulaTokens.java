package com.olvane.kep.olvane.editor;

import java.util.regex.Matcher;
import java.util.regex.Pattern;
import javax.swing.text.Segment;
import org.fife.ui.rsyntaxtextarea.AbstractTokenMaker;
import org.fife.ui.rsyntaxtextarea.Token;
import org.fife.ui.rsyntaxtextarea.TokenMap;

/** Tells the words of a formula apart; a comment between slash and asterisk may go over lines. */
public final class FormulaTokens extends AbstractTokenMaker {
  /** What each group of {@link #WORDS} is. */
  private static final int[] KINDS = {
    Token.COMMENT_MULTILINE, Token.LITERAL_STRING_DOUBLE_QUOTE, Token.FUNCTION,
    Token.LITERAL_NUMBER_DECIMAL_INT, Token.RESERVED_WORD, Token.IDENTIFIER, Token.WHITESPACE,
    Token.OPERATOR
  };
  private static final Pattern WORDS = Pattern.compile("(/\\*(?:.*?\\*/|.*))|(\"[^\"]*\"?)|(@\\w+)"
      + "|(\\d+(?:\\.\\d+)?\\b)|((?i:if|else|elseif|endif|and|or|not)\\b)"
      + "|([\\p{L}\\p{N}_.$#]+)|(\\s+)|(.)", Pattern.DOTALL);

  @Override
  public TokenMap getWordsToHighlight() {
    return new TokenMap();
  }

  @Override
  public Token getTokenList(Segment text, int initialType, int offset) {
    resetTokenList();
    String line = text.toString();
    int at = 0;
    boolean open = initialType == Token.COMMENT_MULTILINE;
    if (open) {
      int close = line.indexOf("*/");
      open = close < 0;
      at = open ? line.length() : close + 2;
      addToken(text, text.offset, text.offset + at - 1, Token.COMMENT_MULTILINE, offset);
    }
    Matcher words = WORDS.matcher(line);
    while (at < line.length() && words.find(at)) {
      int kind = 0;
      while (words.group(kind + 1) == null) {
        kind++;
      }
      open = kind == 0 && (words.end() - at < 4 || !words.group().endsWith("*/"));
      addToken(text, text.offset + at, text.offset + words.end() - 1, KINDS[kind], offset + at);
      at = words.end();
    }
    if (!open) {
      addNullToken();
    }
    return firstToken;
  }
}
