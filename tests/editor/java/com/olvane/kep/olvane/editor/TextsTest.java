package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.function.Function;
import javax.swing.JComboBox;
import javax.swing.text.JTextComponent;
import javax.swing.text.Segment;
import org.fife.ui.rsyntaxtextarea.Token;
import org.junit.Test;

/** Texts that are typed: when they become edits, how formulas are read. */
public class TextsTest {
  private static List<String> tokens(String line, int before) {
    List<String> words = new ArrayList<>();
    Token token = new FormulaTokens().getTokenList(
        new Segment(("xx" + line).toCharArray(), 2, line.length()), before, 100);
    int end = 100;
    for (; token != null && token.isPaintable(); token = token.getNextToken()) {
      assertEquals("no gap", end, token.getOffset());
      end = token.getEndOffset();
      if (token.getType() != Token.WHITESPACE) {
        words.add(token.getType() + " " + token.getLexeme());
      }
    }
    assertEquals("to the end", 100 + line.length(), end);
    return words;
  }

  private static String word(int type, String text) {
    return type + " " + text;
  }

  @Test
  public void formulasAreToldApart() {
    List<String> words = tokens("IF(@SUM(\"Net sales\")>2.5) caf\u00e9; /* note */ \"open", Token.NULL);
    assertEquals(word(Token.RESERVED_WORD, "IF"), words.get(0));
    assertEquals(word(Token.FUNCTION, "@SUM"), words.get(2));
    assertEquals(word(Token.LITERAL_STRING_DOUBLE_QUOTE, "\"Net sales\""), words.get(4));
    assertEquals(word(Token.LITERAL_NUMBER_DECIMAL_INT, "2.5"), words.get(7));
    assertEquals(word(Token.IDENTIFIER, "caf\u00e9"), words.get(9));
    assertEquals(word(Token.COMMENT_MULTILINE, "/* note */"), words.get(11));
    assertEquals(word(Token.LITERAL_STRING_DOUBLE_QUOTE, "\"open"), words.get(12));
    assertEquals("a comment goes on in the next line",
        "[" + word(Token.COMMENT_MULTILINE, "it ends */") + ", " + word(Token.IDENTIFIER, "A") + "]",
        tokens("it ends */A", Token.COMMENT_MULTILINE).toString());
    assertEquals("the shortest comment does not end itself", 1, tokens("/*/", Token.NULL).size());
    assertEquals("and over an empty one", "[" + word(Token.COMMENT_MULTILINE, "") + "]",
        tokens("", Token.COMMENT_MULTILINE).toString());
  }

  @Test
  public void namesAreCompletedFromWhereTheyBegin() {
    assertEquals("Sal", MemberCompletion.lastName("2 * Sal"));
    assertEquals("\"Net sa", MemberCompletion.lastName("\"Cost\" - \"Net sa"));
    assertEquals("", MemberCompletion.lastName("\"Cost\""));
    assertEquals("\u65e5", MemberCompletion.lastName("@SUM(\u65e5"));
    assertEquals("Sales", MemberCompletion.inFormula("Sales"));
    assertEquals("\"100\"", MemberCompletion.inFormula("100"));
    assertEquals("\"Net sales\"", MemberCompletion.inFormula("Net sales"));
  }

  @Test
  public void whatTheOutlineDoesNotTakeStaysToBeMended() {
    List<String> edits = new ArrayList<>();
    Function<String, Row> row = value -> Row.typed(
        "Name", value, text -> text.contains("x") ? "No x." : null, edits::add);
    RowField shown = new RowField(row.apply(""), true, field -> {});
    JTextComponent field = (JTextComponent) shown.input();
    shown.show(row.apply("old"), false);
    field.setText("boxes");
    shown.flush();
    assertEquals("refused where it is typed", "[]", edits.toString());
    field.setText("new");
    shown.flush();
    shown.flush();
    assertEquals("once only", "[new]", edits.toString());
    shown.failed();
    assertEquals("new", field.getText());
    shown.flush();
    assertEquals("not again as it is", "[new]", edits.toString());
    shown.show(row.apply("changed by others"), true);
    assertEquals("what is typed stays", "new", field.getText());
    field.setText("newer");
    shown.flush();
    assertEquals("[new, newer]", edits.toString());
    shown.show(row.apply("newer"), true);
    shown.failed();
    shown.show(row.apply("other member"), false);
    assertEquals("other member", field.getText());
  }

  @Test
  public void whatIsChosenIsAnEditOnceAndGoesBackWhereItFailed() {
    List<String> edits = new ArrayList<>();
    Function<String, Row> row =
        value -> Row.chosen("Storage", value, Arrays.asList("a", "b"), edits::add);
    RowField shown = new RowField(row.apply("a"), true, field -> {});
    JComboBox<?> box = (JComboBox<?>) shown.input();
    shown.show(row.apply(null), false);
    assertEquals("different values are told, and to look is no edit", "(different) []",
        box.getSelectedItem() + " " + edits);
    box.setSelectedItem("b");
    box.setSelectedItem(Row.DIFFERENT);
    assertEquals("[b]", edits.toString());
    shown.failed();
    assertEquals("(different)", box.getSelectedItem());
    shown.show(row.apply("a"), true);
    assertEquals("a of 2 [b]", box.getSelectedItem() + " of " + box.getItemCount() + " " + edits);
  }
}
