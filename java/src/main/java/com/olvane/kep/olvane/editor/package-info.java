/**
 * The outline editor: a window on the facade {@link com.olvane.kep.olvane.outline}.
 *
 * <p>A {@code Workspace} is one open outline. All its calls of the facade run on one work thread;
 * what a window shows is handed to the event thread. What can be undone is an {@code Edit}, which
 * names members by {@code Ref}, as a deleted member that comes back has another handle.
 */
package com.olvane.kep.olvane.editor;
