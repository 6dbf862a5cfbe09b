package com.olvane.kep.olvane.e2e;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.FormulaHolder;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import java.util.function.Function;
import org.junit.Rule;
import org.junit.Test;

/** Every native method with arguments that are null or out of date. */
public class NullArgumentsTest {
  @Rule public final StoreRule store = new StoreRule();

  private static List<Method> natives() {
    List<Method> natives = new ArrayList<>();
    for (Method method : OutlineJni.class.getDeclaredMethods()) {
      if (Modifier.isNative(method.getModifiers())) {
        natives.add(method);
      }
    }
    assertEquals(116, natives.size());
    return natives;
  }

  /** Calls all native methods; gives the results that are not 0, by method name. */
  private static Map<String, Integer> callAll(Function<Class<?>, Object> argument)
      throws ReflectiveOperationException {
    Map<String, Integer> results = new TreeMap<>();
    for (Method method : natives()) {
      Object[] arguments = new Object[method.getParameterCount()];
      for (int i = 0; i < arguments.length; i++) {
        arguments[i] = argument.apply(method.getParameterTypes()[i]);
      }
      Object result = method.invoke(null, arguments);
      if (!result.equals(0) && !result.equals(false)) {
        results.put(method.getName(), (Integer) result);
      }
    }
    return results;
  }

  /** A primitive argument, or null for a type that is none. */
  private static Object primitive(Class<?> type, int number) {
    if (type == boolean.class) {
      return number != 0;
    }
    if (type == int.class) {
      return number;
    }
    if (type == long.class) {
      return (long) number;
    }
    return type == short.class ? Short.valueOf((short) number) : null;
  }

  /** A new argument that a real call could have. */
  private static Object plausible(Class<?> type) {
    try {
      if (type.isPrimitive()) {
        return primitive(type, 1);
      }
      if (type == String.class) {
        return "Text";
      }
      if (Collection.class.isAssignableFrom(type)) {
        return new ArrayList<>();
      }
      if (type == FormulaHolder.class) {
        return new Formula();
      }
      return type.getConstructor().newInstance();
    } catch (ReflectiveOperationException e) {
      throw new AssertionError(e);
    }
  }

  @Test
  public void nullArgumentsDoNothing() throws ReflectiveOperationException {
    Map<String, Integer> results = callAll(type -> primitive(type, 0));
    // Handles of 0 are refused by two; the third looks at its file before the outline.
    assertEquals(new TreeSet<>(Arrays.asList(
        "assignAttributeMember", "exportAliasTable", "listDTSLatestMembers")), results.keySet());
    assertTrue(results.toString(), results.values().stream().allMatch(status -> status == -1));
  }

  @Test
  public void handlesOfClosedOutlinesAndSessionsAreAnsweredWithAStatus()
      throws ReflectiveOperationException {
    int instance;
    int context;
    int outline;
    try (OpenOutline open = store.edit()) {
      instance = store.instance().getValue();
      context = store.session().context().getValue();
      outline = open.handle().getValue();
    }
    store.session().close();
    OutlineHandle stale = new OutlineHandle();
    Map<String, Integer> results = callAll(type -> {
      stale.setValue(outline);
      return type == OutlineHandle.class ? stale
          : type == ContextHandle.class ? new ContextHandle(context)
          : type == InstanceHandle.class ? new InstanceHandle(instance)
          : plausible(type);
    });
    Set<String> silent = new TreeSet<>();
    natives().forEach(method -> silent.add(method.getName()));
    silent.removeAll(results.keySet());
    // The search in batches and the check of a name report no status; the others are asked about
    // no member at all.
    assertEquals(new TreeSet<>(Arrays.asList(
        "copyContinue", "findMember", "findRequest", "getMemberAliasesForTable",
        "getMemberAttributesBlock", "getMemberFormulaBlock", "getMemberUDASBlock")), silent);
  }
}
