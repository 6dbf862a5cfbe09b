/** The native methods of the outline editor and the loader of their library. */
package com.olvane.kep.olvane.api.jni;
