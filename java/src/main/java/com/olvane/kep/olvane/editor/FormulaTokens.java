package com.olvane.kep.olvane.editor;

import java.util.Arrays;
import java.util.HashSet;
import java.util.Locale;
import java.util.Set;
import javax.swing.text.Segment;
import org.fife.ui.rsyntaxtextarea.AbstractTokenMaker;
import org.fife.ui.rsyntaxtextarea.Token;
import org.fife.ui.rsyntaxtextarea.TokenMap;

/**
 * Tells the words of a formula apart: functions such as @SUM, quoted names, numbers, keywords,
 * comments between slashes and asterisks.
 */
public final class FormulaTokens extends AbstractTokenMaker {
  private static final Set<String> KEYWORDS = new HashSet<>(
      Arrays.asList("IF", "ELSE", "ELSEIF", "ENDIF", "AND", "OR", "NOT"));

  /** Makes a teller; the editor component calls this. */
  public FormulaTokens() {}

  @Override
  public TokenMap getWordsToHighlight() {
    return new TokenMap();
  }

  @Override
  public Token getTokenList(Segment text, int initialType, int offset) {
    resetTokenList();
    int end = text.offset + text.count;
    int at = text.offset;
    int shift = offset - text.offset;
    int type = initialType;
    if (type != Token.COMMENT_MULTILINE) {
      type = Token.NULL;
    }
    while (at < end) {
      int start = at;
      int kind = type == Token.COMMENT_MULTILINE ? type : kind(text.array, at, end);
      at = skip(text.array, at, end, kind, type != Token.NULL);
      addToken(text, start, at - 1, kind, start + shift);
      boolean open = kind == Token.COMMENT_MULTILINE && !closes(text.array, start, at, type);
      type = open ? Token.COMMENT_MULTILINE : Token.NULL;
    }
    if (type == Token.COMMENT_MULTILINE) {
      // The next line begins inside the comment.
      if (text.count == 0) {
        addToken(text, text.offset, text.offset - 1, Token.COMMENT_MULTILINE, offset);
      }
    } else {
      addNullToken();
    }
    return firstToken;
  }

  private static boolean closes(char[] text, int start, int end, int before) {
    int least = before == Token.COMMENT_MULTILINE ? 2 : 4;
    return end - start >= least && text[end - 2] == '*' && text[end - 1] == '/';
  }

  private static boolean isWord(char c) {
    return Character.isLetterOrDigit(c) || c == '_' || c == '.' || c == '$' || c == '#';
  }

  private static int kind(char[] text, int at, int end) {
    char c = text[at];
    if (Character.isWhitespace(c)) {
      return Token.WHITESPACE;
    }
    if (c == '"') {
      return Token.LITERAL_STRING_DOUBLE_QUOTE;
    }
    if (c == '/' && at + 1 < end && text[at + 1] == '*') {
      return Token.COMMENT_MULTILINE;
    }
    if (c == '@') {
      return Token.FUNCTION;
    }
    if (!isWord(c)) {
      return Token.OPERATOR;
    }
    int last = at;
    boolean digits = true;
    while (last < end && isWord(text[last])) {
      digits &= Character.isDigit(text[last]) || text[last] == '.';
      last++;
    }
    if (digits) {
      return Token.LITERAL_NUMBER_DECIMAL_INT;
    }
    String word = new String(text, at, last - at).toUpperCase(Locale.ROOT);
    return KEYWORDS.contains(word) ? Token.RESERVED_WORD : Token.IDENTIFIER;
  }

  private static int skip(char[] text, int start, int end, int kind, boolean inside) {
    int at = start;
    switch (kind) {
      case Token.WHITESPACE:
        while (at < end && Character.isWhitespace(text[at])) {
          at++;
        }
        return at;
      case Token.LITERAL_STRING_DOUBLE_QUOTE:
        at++;
        while (at < end && text[at] != '"') {
          at++;
        }
        return Math.min(end, at + 1);
      case Token.COMMENT_MULTILINE:
        at += inside ? 0 : 2;
        while (at + 1 < end && !(text[at] == '*' && text[at + 1] == '/')) {
          at++;
        }
        return Math.min(end, at + 2);
      case Token.OPERATOR:
        return start + 1;
      default:
        at++;
        while (at < end && isWord(text[at])) {
          at++;
        }
        return at;
    }
  }
}
