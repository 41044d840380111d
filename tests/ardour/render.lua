-- Renders the test signal through the equaliser set to the driver's values.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = new_equaliser_session()
	set_through_processor_param(equaliser, values_from("ZT_TARGETS"))
	export_to(session, os.getenv("ZT_OUT"), "render")
end)
