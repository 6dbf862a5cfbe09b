package com.olvane.kep.olvane.editor;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.e2e.Settings;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.Test;

/** The program where no window comes of it. */
public class EditorMainTest {
  /** Runs the program; gives its exit code and what it says. */
  private static String run(String display, String... arguments)
      throws IOException, InterruptedException {
    List<String> command =
        new ArrayList<>(Arrays.asList(System.getProperty("e2e.java").split("\\|")));
    command.addAll(Arrays.asList("-cp", System.getProperty("java.class.path"),
        EditorMain.class.getName(), "--store", Settings.newFolder().toString()));
    command.addAll(Arrays.asList(arguments));
    ProcessBuilder builder = new ProcessBuilder(command).redirectErrorStream(true);
    builder.environment().remove("DISPLAY");
    if (!display.isEmpty()) {
      builder.environment().put("DISPLAY", display);
    }
    Process process = builder.start();
    try (BufferedReader out = new BufferedReader(
        new InputStreamReader(process.getInputStream(), StandardCharsets.UTF_8))) {
      String text = out.lines().collect(Collectors.joining("\n"));
      return process.waitFor() + " " + text;
    }
  }

  @Test
  public void aSentenceSaysWhyThereIsNoWindow() throws Exception {
    assertThat(run("", "Test", "Test"), containsString("1 There is no display"));
    assertThat(run(":4711", "Test", "Test"), containsString("1 There is no display :4711 "));
    assertThat(run("", "Test", "Test", "More"), containsString("2 Unmatched argument"));
    String help = run("", "--help");
    assertEquals('0', help.charAt(0));
    assertThat(help, containsString("OUTLINE_STORE"));
  }
}
